#include "app/program_rig.h"
#include "practice/practice_server.h"

#include <QMenuBar>
#include <QTreeWidget>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace {

const QString Layout = u"[MAIN]\n[MOD]0,0[SIZE]900,300[PANEL]TV\n[END]\n"
                       u"[TV]\n[POS]0,900[SIZE]900,300[TEXT]x[REMOTE]tv[COMMAND]power\n"
                       u"[POS]0,1800[SIZE]900,300[TEXT]y[REMOTE]tv[COMMAND]mute\n[END]\n"_s;

} // namespace

/// Everything a user does, with nothing but keys.
class KeyboardTest : public QObject, public ProgramRig {
    Q_OBJECT

public:
    KeyboardTest()
        : ProgramRig(Layout) {}

private slots:
    void initTestCase() {
        practice.GetOutcomes().learnTime = 20;
        QVERIFY(practice.Listen());
        options.port = practice.Port();
        connect(&practice, &PracticeServer::RecordReceived, this,
                [this](const QByteArray& record) { sent += record; });
        Start();
        QVERIFY(QTest::qWaitForWindowActive(&Window()));
        QTRY_VERIFY(HasSent(Netcommand::CheckCommand, "mute")); // the page stands
    }

    void init() { FailOnWarnings(); }

    void APanelButton() {
        Do(">cmdRem(2) Space");
        QTRY_VERIFY(HasSent(Netcommand::SendCommand, "mute"));
    }

    void ASingleCommand() {
        Do("mnuSendItem(10) #frmSendFree >txtRemote 'tv Tab 'vol+ Return");
        QTRY_VERIFY(HasSent(Netcommand::SendCommand, "vol+"));
        Do(">cmdCancel Return !frmSendFree");
    }

    void ALearnedCommand() {
        Do("mnuModus(11) #frmProgramm =txtRemote 'fan Return @txtCommand 'on Return");
        QTRY_COMPARE(Find<QLineEdit>("txtCommands")->text(), u"1"_s);
        QCOMPARE(practice.GetWorld().FindRemote(u"fan"_s)->commands[0].name, u"on"_s);
        Do(">cmdClose Return !frmProgramm");
    }

    void SettingsOfADevice() {
        const quint8& mode = practice.GetWorld().buses[0].devices.at(7).Mode;
        const int before = mode;
        Do("mnuModus(10) #frmDeviceMode Down Down Down Down Return #frmSetModus >chkMode(0) Space Return");
        QTRY_COMPARE(mode ^ before, 1);
    }

    void ADatabaseEntry() {
        Do("mnuModus(14) #frmDeviceDB =txtName 'am Shift+F10 Down Return Right Down Return #frmIRDBAction");
        Do(">optRelais(0) Right Return !frmIRDBAction >txtName 'house >cmdSave Return");
        SetShelf& sets = practice.GetWorld().databaseSets;
        QTRY_VERIFY(sets.Find(u"house"_s));
        QVERIFY(sets.Find(u"house"_s)->elements.constLast().contains("power"));
        Do(">cmbExit Return !frmDeviceDB");
    }

    void ATranslatorEntry() {
        Do("mnuModus(13) #frmTranslator =cmbRemotes >cmbRemotes Down =cmbCommands >cmdAddSource Return");
        Do(">tvwConfig End >cmbTarget Down =lvwCommands >lvwCommands Down Return");
        Do(">txtName 'rules >cmdSave Return");
        SetShelf& sets = practice.GetWorld().translatorSets;
        QTRY_VERIFY(sets.Find(u"rules"_s));
        QCOMPARE(sets.Find(u"rules"_s)->elements.size(), 3); // root, rule, send step
        Do(">cmbExit Return !frmTranslator");
    }

    void AWebPage() {
        Do("mnuModus(15) #frmHTML >lstFiles");
        QTRY_VERIFY(Find<QTreeWidget>("lstFiles")->topLevelItemCount() > 0);
        Do("Down Space >cmdFlash Return");
        QTRY_VERIFY(CurrentBox() && CurrentBox()->isActiveWindow());
        QCOMPARE(CurrentBox()->text(), u"HTML Flash OK: 2314 Bytes"_s);
        Do("Return >cmdDone Return !frmHTML");
    }

    void AnalogInputs() {
        Do("mnuIO(10) #frmAnalogIO");
        QTRY_VERIFY(Text("lblValue(0)") != u"---");
        Do(">cmdEnd Return !frmAnalogIO");
    }

private:
    /// Steps: a menu entry; ">" Tab to a control, "@" wait to be there, "=" wait for the entries of a list,
    /// "#" wait for a form, "!" until it has gone, "'" type; or a key.
    void Do(const char* steps) {
        for (const QString& step : QString::fromLatin1(steps).split(u' ')) {
            const QByteArray rest = step.sliced(1).toLatin1();
            switch (step[0].toLatin1()) {
            case '>':
                for (int i = 0; i < 100 && !IsAt(rest); ++i)
                    Press(Qt::Key_Tab);
                [[fallthrough]];
            case '@': QTRY_VERIFY2(IsAt(rest), rest); break;
            case '=': QTRY_VERIFY2(Find<QWidget>(rest)->property("count").toInt() > 0, rest); break;
            case '#': QTRY_VERIFY2(Find<Form>(rest) && Find<Form>(rest)->isActiveWindow(), rest); break;
            case '!': QTRY_VERIFY2(!Find<Form>(rest), rest); break;
            case '\'':
                for (const char c : rest)
                    Press(QTest::asciiToKey(c));
                break;
            case 'm': ChooseFromMenu(Action(qPrintable(step))); break;
            default: {
                const QKeyCombination keys = QKeySequence(step)[0];
                Press(keys.key(), keys.keyboardModifiers());
            }
            }
        }
    }

    void ChooseFromMenu(const QAction* entry) {
        QTRY_VERIFY(!QApplication::activeModalWidget());
        const auto* bar = Window().menuBar();
        const auto menu = [bar] { return bar->activeAction()->menu(); };
        const auto isFound = [&] {
            return bar->activeAction() == entry || (menu() && menu()->actions().contains(entry));
        };
        Press(Qt::Key_Alt);
        for (int i = 0; i < 9 && !isFound(); ++i)
            Press(Qt::Key_Right);
        for (int i = 0; i < 9 && menu() && menu()->activeAction() != entry; ++i)
            Press(Qt::Key_Down);
        Press(Qt::Key_Return);
    }

    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        // When a window has gone, the last of the others becomes active, which is the window manager's work.
        QWidget* modal = QApplication::activeModalWidget();
        if (QApplication::activeWindow() == nullptr)
            (modal != nullptr ? modal : &Window())->activateWindow();
        QVERIFY(QTest::qWaitFor([] { return QGuiApplication::focusWindow() != nullptr; }));
        QTest::keyClick(QGuiApplication::focusWindow(), key, modifiers);
    }

    static bool IsAt(const char* name) {
        const QWidget* focus = QApplication::focusWidget();
        return focus != nullptr && focus->objectName() == QLatin1StringView(name);
    }

    bool HasSent(Netcommand netcommand, const char* command) const {
        return std::any_of(sent.begin(), sent.end(), [&](const QByteArray& record) {
            return record[0] == char(netcommand) && record.contains(command);
        });
    }

    PracticeServer practice;
    QList<QByteArray> sent;
};

SUITE(KeyboardTest);

#include "keyboard_test.moc"
