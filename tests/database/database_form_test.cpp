#include "app/program_rig.h"
#include "database/frmDeviceDB.h"
#include "database/frmIRDBAction.h"
#include "database/frmRemProperties.h"

#include "practice/practice_server.h"
#include "support/golden.h"

#include <QContextMenuEvent>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {

QByteArray Names(int type, const QByteArrayList& names) {
    QByteArray elements;
    for (const QByteArray& name : names)
        elements += type == 7 ? Raw::Command(name) : Raw::Name(name);
    return Raw::Page(type, 0, int(names.size()), int(names.size()), 0, elements);
}

/// The database's dialog, at a server that only plays what it is told or at the practice server.
struct DatabaseRig : ProgramRig {
    DatabaseRig()
        : ProgramRig({}) {}

    /// By itself, with these devices.
    void Open(const QStringList& versions = {}) {
        BringUp(false);
        std::vector<ListedDevice> devices;
        for (const QString& version : versions)
            devices.push_back({version, int(devices.size()), version});
        form = new frmDeviceDB({Link(), german, program->MessageBoxes()}, devices, &Window());
        form->ShowModal();
        QVERIFY(QTest::qWaitForWindowActive(form));
        QCOMPARE(Sent(), u"18 / 0"_s);
        QCOMPARE(Link().SaveState, SaveStateKind::Named);
    }
    /// By the menu, with the lists of the practice server.
    void OpenAt(PracticeServer& practice) {
        QVERIFY(practice.Listen());
        options.port = practice.Port();
        Start();
        QTRY_VERIFY(Link().IsUp());
        Action("mnuModus(14)")->trigger();
        QTRY_VERIFY(form = Find<frmDeviceDB>("frmDeviceDB"));
        QTRY_VERIFY(Find<ComboBox>("txtName")->count() > 0);
        Activate();
    }
    void Activate() const {
        form->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(form));
    }
    void Press(const char* button) const {
        form->findChild<QPushButton*>(QLatin1StringView(button))->click();
    }
    void Name(const QString& name) const { Find<EditableComboBox>("txtName")->setEditText(name); }

    KeyedTreeView* View() const { return form->findChild<KeyedTreeView*>(); }
    KeyedTree& Tree() const { return *static_cast<KeyedTree*>(View()->model()); }
    /// Marked texts and tags.
    QStringList Tags() const {
        QStringList tags;
        for (int i = 0; i < Tree().Count(); ++i)
            if (!Tree().At(i).Tag().isEmpty())
                tags += Tree().At(i).Text() + u'=' + Tree().At(i).Tag();
        return tags;
    }
    bool IsOn(const char* name) const { return Find<QWidget>(name)->isEnabled(); }
    bool IsChecked(const char* name) const { return Find<QCheckBox>(name)->isChecked(); }
    QLineEdit* Edit(const char* name) const { return Find<QLineEdit>(name); }

    Language german;
    QPointer<frmDeviceDB> form;
};

/// Random values in all controls, but for the buttons, the name and the device.
class Dice {
public:
    int Roll(int sides) { return int(random.bounded(sides)); }

    void Fill(const DatabaseRig& rig) {
        for (int i = 0; i < rig.Tree().Count(); ++i)
            DatabaseTree::SetTag(rig.Tree(), rig.Tree().At(i).Key(), Roll(3) == 0 ? Tag(rig, i) : QString());
        for (QCheckBox* box : rig.form->findChildren<QCheckBox*>())
            box->setChecked(Roll(2) == 0);
        for (int i = 0; i < 4; ++i)
            rig.form->findChild<ComboBox*>(ElementName(u"cmbModus"_s, i))->setCurrentIndex(Roll(7));
        for (QRadioButton* option : rig.form->findChildren<QRadioButton*>())
            if (Roll(2) == 0)
                option->setChecked(true);
        for (ComboBox* list : rig.form->findChildren<ComboBox*>())
            if (list->isEnabled() && IsInput(list))
                list->setCurrentIndex(Roll(list->count()));
        for (QLineEdit* box : rig.form->findChildren<QLineEdit*>())
            if (box->isEnabled() && box->objectName().startsWith(u"txt") && box->objectName() != u"txtName")
                box->setText(QString::number(1 + Roll(255)));
    }
    /// What the enabled controls hold.
    static QStringList Held(const DatabaseRig& rig) {
        QStringList held;
        for (const QWidget* control : rig.form->findChildren<QWidget*>()) {
            const QString name = control->objectName() + u'=';
            if (!control->isEnabled())
                continue;
            if (const auto* button = qobject_cast<const QAbstractButton*>(control);
                button && button->isChecked())
                held += name;
            if (const auto* list = qobject_cast<const ComboBox*>(control); list && name != u"txtName=")
                held += name + list->currentText();
            if (const auto* box = qobject_cast<const TextBox*>(control))
                held += name + box->text();
        }
        return held;
    }

private:
    static bool IsInput(const QWidget* list) { return list->objectName().startsWith(u"cmbM"); }
    QString Tag(const DatabaseRig& rig, int node) {
        const ActionTarget target{qint32(random.generate()),
                                  quint16(Roll(65536)),
                                  Roll(2) == 0,
                                  Roll(2) == 0,
                                  Roll(2) == 0,
                                  Roll(2) == 0};
        if (DatabaseTree::IsRemote(rig.Tree().At(node)))
            return RemoteTag{target, u"%r ü"_s}.Format();
        ActionTag tag{Roll(4), u" 10TIU" [Roll(6)], {}};
        tag.groups[size_t(Roll(8))] = {target, true, BinaryToHex(QByteArray(Roll(256), '\xA0'))};
        tag.groups[size_t(Roll(8))] = {target, false, QString(Roll(256), u'ä')};
        return tag.Format();
    }

    QRandomGenerator random{7};
};

} // namespace

class DatabaseFormTest : public QObject {
    Q_OBJECT

private slots:
    // The platform without a screen can't raise a menu, either.
    void init() { QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support )"_s)); }

    void RandomDatabasesTravel() {
        PracticeServer practice;
        DatabaseRig rig;
        rig.OpenAt(practice);
        QVERIFY(rig.Tree().Count() > 20);
        Dice dice;
        for (int run = 0; run < 5; ++run) {
            auto* devices = rig.Find<ComboBox>("cmbDevice");
            devices->setCurrentIndex(run % devices->count());
            dice.Fill(rig);
            const QStringList tags = rig.Tags();
            const QStringList held = Dice::Held(rig);
            rig.Name(run < 2 ? u"Haus"_s : u"set %1"_s.arg(run));
            rig.Press("cmdSave");
            if (run == 0) {
                // It exists; agreeing sends everything a second time. From then on it is the dialog's own.
                QTRY_VERIFY(rig.CurrentBox());
                rig.AnswerBox();
                rig.Activate();
            }
            auto* progress = rig.Find<QProgressBar>("pgbStat");
            QTRY_VERIFY(!progress->isVisible());
            dice.Fill(rig);
            QVERIFY(rig.Tags() != tags && Dice::Held(rig) != held);
            rig.Press("cmdLoad");
            QVERIFY(progress->isVisible());
            QTRY_VERIFY(!progress->isVisible());
            QCOMPARE(rig.Tags(), tags);
            QCOMPARE(Dice::Held(rig), held);
        }
        QVERIFY(!rig.CurrentBox());
        rig.Press("cmdFlash");
        QTRY_VERIFY(rig.Find<Form>("frmIRDBStatus"));
        QCOMPARE(rig.Text("lblStat"), u"IRDB Flash OK"_s);
        QCOMPARE(practice.MalformedRecords(), 0);
    }

    void TheTreeWithoutAMouse() {
        PracticeServer practice;
        DatabaseRig rig;
        rig.OpenAt(practice);
        KeyedTreeView* view = rig.View();
        QCOMPARE(QApplication::focusWidget(), view);
        const KeyedNode& remote = rig.Tree().Top().Child(0);
        view->Select(remote.Key());
        QTest::keyClick(view, Qt::Key_Return); // opens the branch of a remote without properties
        QTest::keyClick(view, Qt::Key_Down);
        // The first command gets an action, and its remote the default along with it.
        QTest::keyClick(view, Qt::Key_Return);
        auto* action = rig.Find<frmIRDBAction>("frmIRDBAction");
        QVERIFY(action);
        action->findChild<QRadioButton*>(u"optRelais(1)"_s)->click();
        action->findChild<QPushButton*>(u"cmdOK"_s)->click();
        rig.Activate();
        QVERIFY(remote.Child(0).Text().endsWith(u" [+]") && remote.Child(0).Tag().startsWith(u"A01"));
        QCOMPARE(remote.Tag(), u"000000000000000001000"_s);
        QTest::keyClick(view, Qt::Key_Delete);
        QVERIFY(remote.Child(0).Tag().isEmpty() && !remote.Child(0).IsBold());
        QVERIFY(remote.Text().endsWith(u" [*]"));

        QTest::keyClick(view, Qt::Key_Up);
        QTest::keyClick(view, Qt::Key_Enter);
        QVERIFY(rig.Find<frmRemProperties>("frmRemProperties"));
        rig.Find<frmRemProperties>("frmRemProperties")->close();
        rig.Activate();
        const auto entries = [&] {
            QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, {}, {});
            QApplication::sendEvent(view, &menuKey);
            QString enabled;
            for (const char* name : {"fnuRemProperties(10)", "fnuRemProperties(20)", "fnuRemProperties(30)"})
                enabled += rig.Action(name)->isEnabled() ? u'1' : u'0';
            return enabled;
        };
        auto* menu = rig.Find<QMenu>("fnuPopupTree");
        for (const auto& [enabled, tag] :
             {std::pair(u"011"_s, u""_s), {u"100"_s, u"000000000000000001000"_s}}) {
            QCOMPARE(entries(), enabled);
            QVERIFY(menu->isVisible());
            QTest::keyClick(menu, Qt::Key_Down);
            QTest::keyClick(menu, Qt::Key_Return);
            QCOMPARE(remote.Tag(), tag);
        }
    }

    void ControlsFollowDeviceAndMode() {
        DatabaseRig rig;
        rig.Open({u"E5.05.07"_s, u"G6.05.10"_s, u"S6.03.10"_s});
        const auto enabled = [&rig](std::initializer_list<const char*> names) {
            QString states;
            for (const char* name : names)
                states += rig.IsOn(name) ? u'1' : u'0';
            return states;
        };
        for (const auto& [device, states] :
             {std::pair(0, u"0000000"_s), {1, u"1111001"_s}, {2, u"0010100"_s}, {1, u"1111001"_s}}) {
            rig.Find<ComboBox>("cmbDevice")->setCurrentIndex(device);
            QCOMPARE(
                enabled({"chkAUX", "chkRelay", "chkReceive", "chkLAN", "chkBinary", "chkLine", "txtPort"}),
                states);
        }
        rig.Find<ComboBox>("cmbDevice")->setCurrentIndex(2);
        rig.Find<QCheckBox>("chkBinary")->click();
        rig.Find<QCheckBox>("chkLine")->click();
        rig.Find<QCheckBox>("chkBinary")->click();
        QVERIFY(!rig.IsOn("chkLine") && !rig.IsChecked("chkLine"));

        rig.Play(Names(6, {"tv", "amp"}));
        auto* mode = rig.Find<ComboBox>("cmbModus(2)");
        mode->setCurrentIndex(3);
        for (const char* name : {"txtMin(2)", "txtMax(2)", "txtMinCommand(2)", "txtMaxCommand(2)"})
            rig.Edit(name)->setText(u"999"_s);
        rig.Find<ComboBox>("cmbMinRemote(2)")->setCurrentIndex(1);
        rig.Find<ComboBox>("cmbMaxRemote(2)")->setCurrentIndex(1);
        rig.Edit("txtPort")->setText(u"70000"_s);
        rig.Press("cmdFlash");
        QCOMPARE(rig.Edit("txtMin(2)")->text() + rig.Edit("txtPort")->text(), u"25565535"_s);
        rig.Play(Raw::Ack());
        mode->setCurrentIndex(4);
        QCOMPARE(rig.Edit("txtMin(2)")->text() + rig.Edit("txtMax(2)")->text() +
                     rig.Edit("txtMaxCommand(2)")->text() +
                     rig.Find<ComboBox>("cmbMaxRemote(2)")->currentText(),
                 u""_s);
        QCOMPARE(rig.Find<ComboBox>("cmbMinRemote(2)")->currentText(), u"amp"_s);

        // An input that the device lacks is off, with all that it holds.
        rig.Sent();
        rig.Find<QTabBar>("tabIRDB")->setCurrentIndex(1);
        QCOMPARE(rig.Sent(), u"60 / 0"_s);
        QCOMPARE(rig.Link().carrier, 15);
        rig.Play(Raw::Reply(21, Golden::Hex("00 00 01 02 00") + QByteArray(21, '\0')));
        QCOMPARE(enabled({"frAnalog(0)", "Label6(0)", "frAnalog(1)", "frAnalog(2)", "txtMinCommand(2)"}),
                 u"00111"_s);
    }

    void NothingFollowsTheEndOfTheDialog() {
        for (const bool isSaving : {false, true}) {
            DatabaseRig rig;
            rig.Open();
            rig.Play(Names(6, {"tv", "amp"}));
            QCOMPARE(rig.Sent(), u"19 tv/ 0"_s);
            QCOMPARE(rig.Find<QProgressBar>("pgbStat")->isVisible(), true);
            // The server says no more, and the dialog works all the same.
            rig.View()->Select(u"Ramp"_s);
            DatabaseTree::SelectRemote(rig.Tree(), u"Ramp"_s);
            rig.Name(u"one"_s);
            if (isSaving) {
                rig.Press("cmdSave");
                QCOMPARE(rig.Sent(), u"46 global"_s);
            }
            QTest::keyClick(rig.form, Qt::Key_Escape);
            rig.Play(isSaving ? Raw::Ack() : Names(7, {"on"}));
            QVERIFY(rig.form.isNull());
            QCOMPARE(rig.Sent(), u""_s);
            QCOMPARE(rig.Link().PendingOp, Pending::None);
        }
    }

    void UnknownNamesAreToldOnce() {
        DatabaseRig rig;
        rig.Open();
        // The load overtakes the list of commands: what may still find its place isn't told yet.
        rig.Play(Names(6, {"tv", "<b>amp</b>"}));
        rig.Name(u"one"_s);
        rig.Press("cmdLoad");
        QCOMPARE(rig.Link().SaveState, SaveStateKind::Unchanged);
        IRDBGlobalRecord global;
        global.minimumRemote[0] = u"gone"_s;
        global.errorFormat = u"ERROR %e, as it fills"_s.left(20);
        QByteArray pages = Raw::Page(15, 0, 1, 25, 1, Encode(global));
        for (int page = 0; page < 2; ++page) {
            QByteArray elements;
            for (int i = 0; i < 12; ++i) {
                IRDBElementRecord element;
                element.ElementKind = i < 2 ? 10 : 8;
                element.remote = i < 2 ? u"tv"_s : QString::number(page * 100 + i).rightJustified(80, u'<');
                element.command = i == 0 ? u"on"_s : i == 1 ? u"off"_s : QString();
                elements += Encode(element);
            }
            pages += Raw::Page(15, 1 + page * 12, 12, 25, page == 0 ? 1 : 0, elements);
        }
        rig.Play(pages);
        QVERIFY(!rig.CurrentBox());
        // The answers to the probe that follows a transfer come between those of the lists.
        rig.Play(Names(7, {"on"}) + Names(17, {"one", "two"}));
        rig.Play(Names(7, {}) + Names(17, {"one", "two"}));
        QCOMPARE(rig.Tags().size(), 1);
        QVERIFY(rig.CurrentBox());
        const QStringList lines = rig.CurrentBox()->text().split(u'\n');
        QCOMPARE(lines.size(), 14);
        QCOMPARE(lines[1] + lines[2] + lines[13], u"gonetv / offWeitere: 10"_s);
        QCOMPARE(rig.CurrentBox()->textFormat(), Qt::PlainText);
        rig.AnswerBox();
        QVERIFY(!rig.CurrentBox());
        QCOMPARE(rig.Find<EditableComboBox>("txtName")->currentText(), u"one"_s);
        QCOMPARE(rig.Edit("txtErr")->text(), global.errorFormat); // as wide as its field
    }
};

SUITE(DatabaseFormTest);

#include "database_form_test.moc"
