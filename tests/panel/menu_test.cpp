#include "app/program_rig.h"
#include "panel/living_room.h"

#include <QMenu>
#include <QMenuBar>

using namespace Qt::StringLiterals;

namespace {

/// The entries of all menus with this property, in the order of their names.
QString Entries(const ProgramRig& rig, bool (*is)(const QAction&)) {
    QStringList names;
    for (const QAction* action : rig.Window().findChildren<QAction*>(QRegularExpression(u"^mnu"_s)))
        if (action->objectName() != u"mnuRemoteItem(999)" && is(*action))
            names += action->objectName();
    names.sort();
    return names.join(u' ');
}

bool IsHidden(const QAction& action) {
    return !action.isVisible();
}

bool IsGrey(const QAction& action) {
    return action.isVisible() && !action.isEnabled() && !action.isSeparator();
}

} // namespace

/// The menu bar of the main window, and what the layout, the link and the language do to it.
class MenuTest : public QObject {
    Q_OBJECT

private slots:
    void init() { FailOnWarnings(); }

    void ControlNames() {
        ProgramRig rig(LivingRoom);
        rig.BringUp();
        QCOMPARE(rig.Window().objectName(), u"frmRemote"_s);
        QStringList found;
        for (const QAction* top : rig.Window().menuBar()->actions()) {
            found += u'/' + top->objectName() + u' ' + top->text();
            if (top->menu() == nullptr)
                continue;
            QCOMPARE(top->menu()->objectName(), top->objectName());
            for (const QAction* entry : top->menu()->actions())
                found += entry->objectName() + (entry->isSeparator() ? QString() : u' ' + entry->text());
        }
        QCOMPARE(found.join(u','),
                 u"/mnuMain(10) Modus,mnuModus(10) Device Status,mnuModus(11) Befehle Lernen,"
                 u"mnuModus(13) IR Translator,mnuModus(14) Device Datenbank,mnuModus(15) HTML Pages,"
                 u"mnuModus(16),mnuModus(18) IP Adresse,mnuModus(20),mnuModus(30) Ende,"
                 u"/mnuRemote(10) Remote,mnuRemoteItem(999) -,mnuRemoteItem(1) Video && <b>TV</b>,"
                 u"mnuRemoteItem(2) HIFI,/mnuSend(10) Senden,mnuSendItem(10) Befehl Senden,"
                 u"/mnuIO(10) Analog Inputs,/mnuAbout(10) ?"_s);
    }

    void RefusedThenAGoodHost() {
        ProgramRig rig(LivingRoom);
        rig.server.Shut();
        rig.Start();
        QTRY_VERIFY(rig.CurrentBox());
        QCOMPARE(rig.CurrentBox()->icon(), QMessageBox::Critical);
        QCOMPARE(rig.CurrentBox()->windowTitle(), u"Calvoris"_s);
        QVERIFY(QRegularExpression(u"^Error: .+\nBrenmard läuft nicht auf dem Zielhost 127\\.0\\.0\\.1$"_s)
                    .match(rig.CurrentBox()->text())
                    .hasMatch());
        const QString help = rig.CurrentBox()->informativeText();
        QVERIFY(help.startsWith(u"Ohne Geräte: "));
        QVERIFY(!rig.Find<QDialog>("frmIP"));
        rig.AnswerBox();
        QCOMPARE(Entries(rig, IsGrey), u"mnuModus(10) mnuModus(11) mnuModus(13) mnuRemote(10) mnuSend(10)"_s);
        QPointer<QDialog> form = rig.Find<QDialog>("frmIP");
        QVERIFY(form && form->isVisible() && form->isModal());
        QCOMPARE(form->windowTitle(), u" IP Adresse eingeben"_s);
        QCOMPARE(rig.Find<QLineEdit>("txtIP")->text(), QString());
        QCOMPARE(rig.Text("lblHelp"), help);

        // Refused again: the box, and behind it the form that asks once more.
        QTest::keyClicks(rig.Find<QLineEdit>("txtIP"), u" 127.0.0.1 "_s);
        QTest::mouseClick(rig.Button("cmdOK"), Qt::LeftButton);
        QTRY_VERIFY(rig.CurrentBox() && !form);
        QCOMPARE(rig.Link().RemoteHost, FakeServer::Host());
        rig.AnswerBox();
        form = rig.Find<QDialog>("frmIP");
        QVERIFY(form && form->isVisible() && rig.server.Open());
        QTest::keyClicks(rig.Find<QLineEdit>("txtIP"), FakeServer::Host() + u'\r');
        QTRY_COMPARE(rig.server.Log(), u"hello; 36 / 0; 56 tv/vol+ 1"_s);
        QCOMPARE(Entries(rig, IsGrey), QString());
        QVERIFY(!form && rig.Button("cmdModeP(2)"));
        QCOMPARE(rig.server.Connections(), 1);
    }

    void Reconnecting() {
        ProgramRig rig(LivingRoom);
        rig.BringUp();
        rig.Play(Raw::Result(28, 1));
        QVERIFY(!rig.Button("cmdRem(1)")->isEnabled());
        QCOMPARE(rig.Sent(), u"56 tv/mute 2"_s);
        rig.Link().Connect();
        // The panel stands, so only its check is done again, for all buttons.
        QTRY_COMPARE(rig.server.Log(), u"hello; 36 / 0; 56 tv/vol+ 1"_s);
        QVERIFY(rig.Button("cmdRem(1)")->isEnabled());
        QVERIFY(!rig.Button("cmdModeP(3)") && !rig.Action("mnuRemoteItem(3)"));
        QCOMPARE(rig.Window().findChildren<QAction*>(u"mnuRemoteItem(2)"_s).size(), 1);
    }

    void MenuSwitches() {
        const std::tuple<QString, QString, QString> rows[] = {
            {u"[NOMODUS]1[NOSEND]0[NOREMOTE]3[NOABOUT]x"_s,
             {},
             u"mnuAbout(10) mnuModus(10) mnuModus(11) mnuModus(13) mnuModus(14) mnuModus(18) "
             "mnuRemote(10) mnuSend(10)"_s},
            {u"[NOMODUS]2[NOSEND]2[NOREMOTE]2[NOABOUT]2"_s,
             u"mnuAbout(10) mnuModus(10) mnuModus(11) mnuModus(13) mnuModus(14) mnuModus(15) mnuModus(18) "
             "mnuModus(20) mnuRemote(10) mnuSend(10)"_s,
             {}},
            {u"[TITLE]Ferolo 3"_s,
             u"mnuModus(14) mnuModus(15) mnuModus(18) mnuRemote(10) mnuSend(10)"_s,
             {}}};
        for (const auto& [switches, hidden, grey] : rows) {
            ProgramRig rig(u"[MAIN]\n"_s + switches + u"\n[MOD]0,0[SIZE]9,9[PANEL]TV\n[END]\n"_s +
                           LayoutPages);
            rig.BringUp();
            for (int round = 0; round < 2; ++round) {
                QCOMPARE(Entries(rig, IsHidden), hidden);
                QCOMPARE(Entries(rig, IsGrey), grey);
                rig.server.TakeLog();
                rig.Link().Connect();
                QTRY_COMPARE(rig.server.Records(), 3);
            }
        }
    }

    void BrandMenu() {
        const std::pair<QString, QString> rows[] = {{u"German"_s, u"Start Einstellungen Befehle Zuordnen"_s},
                                                    {u"English"_s, u"Start Options Link Commands"_s},
                                                    {u"French"_s, u"Start Device Status IR Translator"_s}};
        for (const auto& [language, captions] : rows) {
            ProgramRig rig(u"[MAIN]\n[TITLE]Ferolo\n[MOD]0,0[SIZE]9,9[PANEL]TV\n[END]\n"_s + LayoutPages,
                           language);
            rig.WriteFile(language + u".tra"_s, u"\"frmRemote.cmdRem\",\"wrong\"\n"_s);
            rig.BringUp();
            QStringList shown;
            for (const char* entry : {"mnuMain(10)", "mnuModus(10)", "mnuModus(13)"})
                shown += rig.Action(entry)->text();
            QCOMPARE(shown.join(u' '), captions);
            QCOMPARE(rig.Window().windowTitle(), u"Ferolo"_s);
            QCOMPARE(rig.Button("cmdRem(2)")->text(), u"Mute"_s); // the layout's texts stay as they are
        }
    }
};

SUITE(MenuTest);

#include "menu_test.moc"
