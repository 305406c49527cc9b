#include "app/program_rig.h"
#include "database/frmDeviceDB.h"
#include "database/frmRemProperties.h"
#include "database/random_tags.h"

#include "practice/practice_server.h"
#include "support/golden.h"

#include <QContextMenuEvent>

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
    void Type(const char* box, const QString& text) const { Find<QLineEdit>(box)->setText(text); }
    void Choose(const char* list, int index) const { Find<ComboBox>(list)->setCurrentIndex(index); }
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
    /// The texts of boxes and lists, and whether a control is on.
    QString Texts(std::initializer_list<const char*> names) const {
        QStringList texts;
        for (const char* name : names) {
            const auto* list = Find<ComboBox>(name);
            texts += list ? list->currentText() : Find<QLineEdit>(name)->text();
        }
        return texts.join(u'|');
    }
    QString AreOn(std::initializer_list<const char*> names) const {
        QString states;
        for (const char* name : names)
            states += Find<QWidget>(name)->isEnabled() ? u'1' : u'0';
        return states;
    }

    Language german;
    QPointer<frmDeviceDB> form;
};

/// Random values in all controls of the dialog, but for the buttons, the name and the device.
void Fill(const DatabaseRig& rig, Dice& dice) {
    for (int i = 0; i < rig.Tree().Count(); ++i) {
        const KeyedNode& node = rig.Tree().At(i);
        QString tag = DatabaseTree::IsRemote(node) ? RemoteTag{dice.Target(), u"%r ü"_s}.Format()
                                                   : dice.ActionTagOf('A', 'Z');
        DatabaseTree::SetTag(rig.Tree(), node.Key(), dice.Roll(3) == 0 ? tag : QString());
    }
    for (QCheckBox* box : rig.form->findChildren<QCheckBox*>())
        box->setChecked(dice.Coin());
    for (int i = 0; i < 4; ++i)
        rig.form->findChild<ComboBox*>(ElementName(u"cmbModus"_s, i))->setCurrentIndex(dice.Roll(7));
    for (QRadioButton* option : rig.form->findChildren<QRadioButton*>())
        if (dice.Coin())
            option->setChecked(true);
    for (ComboBox* list : rig.form->findChildren<ComboBox*>())
        if (list->isEnabled() && list->objectName().startsWith(u"cmbM"))
            list->setCurrentIndex(dice.Roll(list->count()));
    for (TextBox* box : rig.form->findChildren<TextBox*>())
        if (box->isEnabled())
            box->setText(QString::number(1 + dice.Roll(255)));
}
/// What the enabled controls hold.
QStringList Held(const DatabaseRig& rig) {
    QStringList held;
    for (const QWidget* control : rig.form->findChildren<QWidget*>()) {
        const auto* button = qobject_cast<const QAbstractButton*>(control);
        const auto* list = qobject_cast<const ComboBox*>(control);
        const auto* box = qobject_cast<const TextBox*>(control);
        if (control->isEnabled() && control->objectName() != u"txtName" &&
            ((button && button->isChecked()) || list || box))
            held += control->objectName() + u'=' + (list ? list->currentText() : QString()) +
                    (box ? box->text() : QString());
    }
    return held;
}

} // namespace

class DatabaseFormTest : public QObject {
    Q_OBJECT

private slots:
    void init() { FailOnWarnings(); }

    void RandomDatabasesTravel() {
        PracticeServer practice;
        DatabaseRig rig;
        rig.OpenAt(practice);
        QVERIFY(rig.Tree().Count() > 20);
        Dice dice;
        for (int run = 0; run < 5; ++run) {
            auto* devices = rig.Find<ComboBox>("cmbDevice");
            devices->setCurrentIndex(run % devices->count());
            Fill(rig, dice);
            const QStringList tags = rig.Tags();
            const QStringList held = Held(rig);
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
            Fill(rig, dice);
            QVERIFY(rig.Tags() != tags && Held(rig) != held);
            rig.Press("cmdLoad");
            QVERIFY(progress->isVisible());
            QTRY_VERIFY(!progress->isVisible());
            QCOMPARE(rig.Tags(), tags);
            QCOMPARE(Held(rig), held);
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
        const auto press = [view](auto... keys) { (QTest::keyClick(view, keys), ...); };
        view->Select(remote.Key());
        // Opens the branch of a remote without properties. The first command gets an action, and its remote
        // the default along with it.
        press(Qt::Key_Return, Qt::Key_Down, Qt::Key_Return);
        rig.Find<QRadioButton>("optRelais(1)")->click();
        rig.Press("cmdOK");
        rig.Activate();
        QVERIFY(remote.Child(0).Text().endsWith(u" [+]") && remote.Child(0).Tag().startsWith(u"A01"));
        QCOMPARE(remote.Tag(), DatabaseTree::DefaultRemoteTag);
        press(Qt::Key_Delete);
        QVERIFY(remote.Child(0).Tag().isEmpty());
        press(Qt::Key_Up, Qt::Key_Enter);
        QVERIFY(rig.Find<frmRemProperties>("frmRemProperties"));
        rig.Find<frmRemProperties>("frmRemProperties")->close();
        rig.Activate();

        auto* menu = rig.Find<QMenu>("fnuPopupTree");
        for (const auto& [enabled, tag] :
             {std::pair(u"011"_s, QString()), {u"100"_s, DatabaseTree::DefaultRemoteTag.toString()}}) {
            QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, {}, {});
            QApplication::sendEvent(view, &menuKey);
            QVERIFY(menu->isVisible());
            QString entries;
            for (const char* name : {"fnuRemProperties(10)", "fnuRemProperties(20)", "fnuRemProperties(30)"})
                entries += rig.Action(name)->isEnabled() ? u'1' : u'0';
            QCOMPARE(entries, enabled);
            QTest::keyClick(menu, Qt::Key_Down);
            QTest::keyClick(menu, Qt::Key_Return);
            QCOMPARE(remote.Tag(), tag);
        }
    }

    void ControlsFollowDeviceAndMode() {
        DatabaseRig rig;
        rig.Open({u"E5.05.07"_s, u"G6.05.10"_s, u"S6.03.10"_s});
        for (const auto& [device, states] :
             {std::pair(0, u"0000000"_s), {1, u"1111001"_s}, {2, u"0010100"_s}, {1, u"1111001"_s}}) {
            rig.Choose("cmbDevice", device);
            QCOMPARE(
                rig.AreOn({"chkAUX", "chkRelay", "chkReceive", "chkLAN", "chkBinary", "chkLine", "txtPort"}),
                states);
        }
        rig.Choose("cmbDevice", 2);
        for (const char* box : {"chkBinary", "chkLine", "chkBinary"})
            rig.Find<QCheckBox>(box)->click();
        QVERIFY(rig.AreOn({"chkLine"}) == u"0" && !rig.Find<QCheckBox>("chkLine")->isChecked());

        rig.Play(Names(6, {"tv", "amp"}));
        rig.Choose("cmbModus(2)", 3);
        for (const char* name : {"txtMin(2)", "txtMax(2)", "txtMaxCommand(2)", "txtPort"})
            rig.Type(name, u"70000"_s);
        for (const char* name : {"cmbMinRemote(2)", "cmbMaxRemote(2)"})
            rig.Choose(name, 1);
        rig.Press("cmdFlash");
        QCOMPARE(rig.Texts({"txtMin(2)", "txtPort"}), u"255|65535"_s);
        rig.Play(Raw::Ack());
        rig.Choose("cmbModus(2)", 4);
        QCOMPARE(
            rig.Texts({"txtMin(2)", "txtMax(2)", "txtMaxCommand(2)", "cmbMaxRemote(2)", "cmbMinRemote(2)"}),
            u"||||amp"_s);

        // An input that the device lacks is off, with all that it holds.
        rig.Sent();
        rig.Find<QTabBar>("tabIRDB")->setCurrentIndex(1);
        QCOMPARE(rig.Sent(), u"60 / 0"_s);
        QCOMPARE(rig.Link().carrier, 15);
        rig.Play(Raw::Reply(21, Golden::Hex("00 00 01 02 00") + QByteArray(21, '\0')));
        QCOMPARE(rig.AreOn({"frAnalog(0)", "Label6(0)", "frAnalog(1)", "frAnalog(2)", "txtMinCommand(2)"}),
                 u"00111"_s);
    }

    void UnknownNamesAreToldOnce() {
        DatabaseRig rig;
        rig.Open();
        // The load overtakes the list of commands: what may still find its place isn't told yet.
        rig.Play(Names(6, {"tv", "<b>amp</b>"}));
        rig.Name(u"one"_s);
        rig.Press("cmdLoad");
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
                element.command = QStringList{u"on"_s, u"off"_s}.value(i);
                elements += Encode(element);
            }
            pages += Raw::Page(15, 1 + page * 12, 12, 25, page == 0 ? 1 : 0, elements);
        }
        rig.Play(pages);
        QVERIFY(!rig.CurrentBox());
        // The answers to the probe that follows a transfer come between those of the lists.
        for (const QByteArray& commands : {Names(7, {"on"}), Names(7, {})})
            rig.Play(commands + Names(17, {"one", "two"}));
        QCOMPARE(rig.Tags().size(), 1);
        QVERIFY(rig.CurrentBox());
        const QStringList lines = rig.CurrentBox()->text().split(u'\n');
        QCOMPARE(lines.size(), 14);
        QCOMPARE(lines[1] + lines[2] + lines[13], u"gonetv / offWeitere: 10"_s);
        QCOMPARE(rig.CurrentBox()->textFormat(), Qt::PlainText);
        rig.AnswerBox();
        QVERIFY(!rig.CurrentBox());
        QCOMPARE(rig.Texts({"txtName", "txtErr"}), u"one|"_s + global.errorFormat); // as wide as its field
    }
};

SUITE(DatabaseFormTest);

#include "database_form_test.moc"
