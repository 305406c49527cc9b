#include "forms/keyed_tree_view.h"
#include "support/practice_rig.h"

#include <QContextMenuEvent>
#include <QDrag>
#include <QMenuBar>
#include <QPointingDevice>
#include <QProgressBar>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

const QString Layout = u"[MAIN]\n[MOD]0,0[SIZE]900,300[PANEL]TV\n[END]\n"
                       u"[TV]\n[POS]0,900[SIZE]900,300[TEXT]x[REMOTE]tv[COMMAND]power\n"
                       u"[POS]0,1800[SIZE]900,300[TEXT]y[REMOTE]tv[COMMAND]power;mute;power;mute\n[END]\n"_s;
constexpr int Lag = 7; ///< milliseconds before each answer once it is "slow"

/// Ways that several moments share.
const QHash<QString, QString> Ways = {
    {u"learn"_s, u"menu mnuModus(11) frmProgramm, list txtRemote tv"_s},
    {u"learn-tv"_s, u"learn, press cmdRemote, reads txtTimings, type txtCommand new"_s},
    {u"translator"_s, u"menu mnuModus(13) frmTranslator, list txtName Wohnzimmer"_s},
    {u"rules"_s, u"translator, press cmdLoad, reads lblState geladen, slow"_s},
    {u"database"_s, u"menu mnuModus(14) frmDeviceDB, list txtName Haus"_s},
    {u"house"_s, u"database, press cmdLoad, idle, slow"_s},
    {u"action"_s, u"database, enter tvwRemotes Ctv-power frmIRDBAction"_s},
    {u"devices"_s, u"menu mnuModus(10) frmDeviceMode"_s},
};

/// The ways to all moments: dialogs, boxes, chains and what a hand is in the middle of. The numbers are those
/// of requests that have been got, and how often.
const QString Moments =
    uR"(panel; learn-tv; learn-tv, press cmdCCF frmCCF; menu mnuSendItem(10) frmSendFree; devices;
devices, enter tvwStat D6.9 frmSetModus; devices, enter tvwStat D9.0 frmSetModusEx;
devices, enter tvwStat D3.2 frmSetModusEx, press cmdStartup frmStartupText; translator;
rules, enter tvwConfig REM frmTransRemProperties; rules, enter tvwConfig MAC frmTransRcvProperties;
rules, enter tvwConfig SND frmTransSndProperties; slow, menu mnuModus(13) frmTranslatorWait; database; action;
house, enter tvwRemotes Ramp frmRemProperties; flash frmIRDBStatus; menu mnuModus(15) frmHTML;
menu mnuIO(10) frmAnalogIO; menu mnuAbout(10) frmAbout; log; menu mnuModus(18) frmIP;

errors, asks; action, errors, asks; question, asks; translator, press cmdSave, asks;
database, press cmdSave, asks; stored, asks; refused, asks; learn, refused, asks, answer frmIP;

slow, menu mnuRemoteItem(1), got 56 1; slow, press cmdRem(2), got 1 2; slow, menu mnuModus(15), got 69 1;
slow, menu mnuSendItem(10) frmSendFree; learn-tv, slow, press cmdLearn;
slow, menu mnuModus(14) frmDeviceDB, got 19 2; database, slow, press cmdLoad, got 49 1;
house, press cmdSave, got 46 3; house, press cmdFlash, got 46 3; translator, slow, press cmdLoad, got 21 1;
rules, press cmdSave, got 20 3; rules, press cmdFlash, got 20 3; slow, menu mnuIO(10) frmAnalogIO, got 60 1;
menu mnuModus(15) frmHTML, slow, press cmdAll, press cmdFlash;

mouse cmdRem(1), got 7 1; key cmdRem(1), got 7 1; finger cmdRem(1), got 7 1; translator, mouse cmbExit;
translator, drag lvwCommands; learn-tv, press cmdCCF frmCCF, drag txtCCF; bar, pops;
translator, right tvwConfig, pops; database, select tvwRemotes Rtv, right tvwRemotes, pops;
menu mnuModus(18) frmIP, right txtIP, pops; translator, drop cmbRemotes, pops; learn, drop txtRemote, pops)"_s;

/// The whole program against the practice server, on its way to a moment at which it ends.
struct Scene : PracticeRig {
    Scene()
        : PracticeRig(Layout) {
        QObject::connect(&practice, &PracticeServer::RecordReceived, &practice,
                         [this](const QByteArray& record) { sent += record[0]; });
        Start();
        QObject::connect(&program->MessageBoxes(), &Boxes::Opened, &practice,
                         [this](const QMessageBox* box) { told += box->text(); });
        Find<QTimer>("timStart")->setInterval(0);
        Until([this] { return Window().isActiveWindow() && Count(56) == 2; });
        Find<QTimer>("Timer")->setInterval(15);
        Find<QTimer>("timIntercommand")->setInterval(5);
    }

    bool Until(const std::function<bool()>& condition) {
        return isThere = isThere && QTest::qWaitFor(condition);
    }
    int Count(int netcommand) const { return int(sent.count(char(netcommand))); }
    bool Got(int netcommand, int count) {
        return Until([=, this] { return Count(netcommand) >= count; });
    }
    template <class Control = QWidget> Control* Get(const QString& name) const {
        return Window().findChild<Control*>(name);
    }
    /// The dialogs that are up, the first one first.
    QList<Form*> Forms() const {
        QList<Form*> forms = Window().findChildren<Form*>();
        forms.removeIf([](const Form* form) { return !form->isVisible(); });
        return forms;
    }
    const Form* LastForm() const { return Forms().isEmpty() ? nullptr : Forms().last(); }

    /// Selects the first node whose key begins so.
    QWidget* Select(const QString& name, const QString& key) {
        auto* view = Get<KeyedTreeView>(name);
        Until([&] {
            const auto found = view->model()->match(view->model()->index(0, 0), KeyedTree::KeyRole, key, 1,
                                                    Qt::MatchStartsWith | Qt::MatchRecursive);
            view->Select(found.value(0).data(KeyedTree::KeyRole).toString());
            return !view->SelectedKey().isEmpty();
        });
        return view;
    }

    /// A drag runs an event loop inside an event of the control. The platform without a screen has no drags,
    /// so here is the loop alone.
    void Drag(QWidget* control) {
        const QPointer<QDrag> drag = new QDrag(control);
        QEventLoop loop;
        QTimer::singleShot(0, &loop, [this] { End(); });
        QTimer::singleShot(Lag, &loop, &QEventLoop::quit);
        loop.exec();
        isThere = isThere && drag;
        delete drag;
    }

    void End() {
        if (const auto ends = std::exchange(ending, {}))
            ends();
    }

    QByteArray sent; ///< the netcommands that the server has got
    QStringList told;
    std::function<void()> ending;
    std::unique_ptr<QPointingDevice> finger{QTest::createTouchDevice()};
    bool isThere = true; ///< at the moment, or on the way to it
};

using Text = const QString&;
const QHash<QString, void (*)(Scene&, Text, Text)> Verbs = {
    {u"panel"_s, [](Scene&, Text, Text) {}},
    {u"menu"_s, [](Scene& s, Text what, Text) { s.Get<QAction>(what)->trigger(); }},
    {u"press"_s, [](Scene& s, Text what, Text) { QTest::mouseClick(s.Get(what), Qt::LeftButton); }},
    {u"list"_s, [](Scene& s, Text what, Text text) { s.Get<QComboBox>(what)->setEditText(text); }},
    {u"type"_s, [](Scene& s, Text what, Text text) { s.Get<QLineEdit>(what)->setText(text); }},
    {u"reads"_s,
     [](Scene& s, Text what, Text part) {
         const auto text = [&] { return s.Get(what)->property("text").toString(); };
         s.Until([&] { return !text().isEmpty() && text().contains(part); });
     }},
    {u"idle"_s,
     [](Scene& s, Text, Text) { s.Until([&] { return !s.Get<QProgressBar>(u"pgbStat"_s)->isVisible(); }); }},
    {u"select"_s, [](Scene& s, Text what, Text key) { s.Select(what, key); }},
    {u"enter"_s, [](Scene& s, Text what, Text key) { QTest::keyClick(s.Select(what, key), Qt::Key_Return); }},
    {u"log"_s, [](Scene& s, Text, Text) { s.practice.Push(Raw::Log("x")); }},
    {u"errors"_s, [](Scene& s, Text, Text) { s.practice.Push(Raw::Result(9, 9) + Raw::Result(9, 8)); }},
    {u"question"_s, [](Scene& s, Text, Text) { s.practice.Push(Raw::Result(35, 0)); }},
    {u"stored"_s, [](Scene& s, Text, Text) { s.practice.Push(Raw::Received("F1")); }},
    {u"flash"_s,
     [](Scene& s, Text, Text) { s.practice.Push(Raw::DatabaseStatus("1", "64K") + Raw::Received("F2")); }},
    {u"refused"_s, [](Scene& s, Text, Text) { emit s.Link().LinkFailed(LinkFault::Refused, {}); }},
    {u"asks"_s, [](Scene& s, Text, Text) { s.Until([&] { return s.CurrentBox() != nullptr; }); }},
    {u"answer"_s, [](Scene& s, Text, Text) { s.AnswerBox(); }},
    {u"slow"_s, [](Scene& s, Text, Text) { s.practice.GetFaults().delay = Lag, s.sent.clear(); }},
    {u"got"_s, [](Scene& s, Text what, Text count) { s.Got(what.toInt(), count.toInt()); }},
    {u"mouse"_s, [](Scene& s, Text what, Text) { QTest::mousePress(s.Get(what), Qt::LeftButton); }},
    {u"key"_s, [](Scene& s, Text what, Text) { QTest::keyPress(s.Get(what), Qt::Key_Space); }},
    {u"finger"_s,
     [](Scene& s, Text what, Text) {
         QTest::touchEvent(s.Get(what), s.finger.get()).press(0, {5, 5});
     }},
    {u"drag"_s, [](Scene& s, Text what, Text) { s.Drag(s.Get(what)); }},
    {u"bar"_s,
     [](Scene& s, Text, Text) {
         QTest::mouseClick(s.Window().menuBar(), Qt::LeftButton, {}, {10, 10});
     }},
    {u"right"_s,
     [](Scene& s, Text what, Text) {
         const auto* area = s.Get<QAbstractScrollArea>(what);
         QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, s.Window().pos());
         QApplication::sendEvent(area ? area->viewport() : s.Get(what), &event);
     }},
    {u"drop"_s, [](Scene& s, Text what, Text) { s.Get<QComboBox>(what)->showPopup(); }},
    {u"pops"_s,
     [](Scene& s, Text, Text) { s.Until([] { return QApplication::activePopupWidget() != nullptr; }); }},
};

void Go(Scene& scene, const QString& steps) {
    for (const QString& step : steps.split(u", "_s)) {
        const QStringList words = step.split(u' ');
        const QString what = words.value(1);
        if (Ways.contains(step)) {
            Go(scene, Ways[step]);
            continue;
        }
        scene.Until([&] {
            const auto* list = scene.Get<QComboBox>(what);
            return (list == nullptr || list->count() > 0) &&
                   (!scene.Get(what) || scene.Get(what)->isEnabled());
        });
        if (scene.isThere)
            Verbs[words[0]](scene, what, words.value(2));
        if (const QString& form = words.last(); form.startsWith(u"frm"))
            scene.Until(
                [&] { return scene.LastForm() != nullptr && scene.LastForm()->objectName() == form; });
    }
}

struct Ending {
    const char* name;
    enum { Gone, LinkLost, FormGone } after;
    int every;  ///< one of so many moments is enough, as the way to the end is soon another's
    bool waits; ///< for a drag to be over, before it deletes what is dragged from
    void (*run)(Scene&);
};

const Ending Endings[] = {
    {"window closed", Ending::Gone, 1, true, [](Scene& s) { s.Window().close(); }},
    {"menu entry", Ending::Gone, 4, true, [](Scene& s) { s.Action("mnuModus(30)")->trigger(); }},
    {"window manager", Ending::Gone, 1, true,
     [](Scene& s) {
         // It may ask any window, but only the one before all others hears it.
         for (int i = 0; i < 10 && s.Window().isVisible(); ++i) {
             QWidget* modal = QApplication::activeModalWidget();
             QCloseEvent event;
             QCoreApplication::sendEvent((modal ? modal : &s.Window())->windowHandle(), &event);
         }
     }},
    {"end of the desktop", Ending::Gone, 4, true, [](Scene&) { QApplication::closeAllWindows(); }},
    {"program destroyed", Ending::Gone, 1, false, [](Scene& s) { s.program.reset(); }},
    {"connection closed", Ending::LinkLost, 1, true, [](Scene& s) { s.practice.CloseClients(); }},
    {"connection reset", Ending::LinkLost, 2, true, [](Scene& s) { s.practice.ResetClients(); }},
    {"form closed", Ending::FormGone, 1, true, [](Scene& s) { s.Forms().constFirst()->Unload(); }},
    {"form deleted", Ending::FormGone, 2, false, [](Scene& s) { delete s.Forms().constFirst(); }},
};

} // namespace

/// Every way to end, at every moment that is a bad one for it.
class MomentsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { FailOnWarnings(); }

    void Ends_data() {
        QTest::addColumn<int>("ending");
        QTest::addColumn<QString>("moment");
        const QStringList moments = QString(Moments).replace(u'\n', u' ').split(u';');
        for (int ending = 0; ending < int(std::size(Endings)); ++ending)
            for (int i = ending % Endings[ending].every; i < moments.size(); i += Endings[ending].every) {
                const QString moment = moments[i].trimmed();
                if (Endings[ending].waits || !moment.contains(u"drag")) // Qt itself is in the way
                    QTest::addRow("%s: %s", Endings[ending].name, qPrintable(moment)) << ending << moment;
            }
    }

    void Ends() {
        QFETCH(int, ending);
        QFETCH(QString, moment);
        const Ending& how = Endings[ending];
        Scene scene;
        QVERIFY(scene.isThere);
        QSignalSpy ended(scene.program.get(), &Program::Ended);
        QStringList texts;
        bool canEnd = false;
        scene.ending = [&] {
            texts = Texts(scene);
            scene.told.clear();
            canEnd = scene.isThere && (how.after != Ending::FormGone || !scene.Forms().isEmpty());
            if (canEnd)
                how.run(scene);
        };
        Go(scene, moment);
        scene.End();
        QVERIFY(scene.isThere);
        if (!canEnd)
            return; // there is no form to close

        if (how.after == Ending::LinkLost)
            LoseLink(scene, texts);
        if (how.after != Ending::Gone) {
            WorkOn(scene);
            scene.Window().close();
        }
        if (scene.program) {
            QVERIFY(!ended.isEmpty() && !scene.Link().IsUp());
            scene.told.clear();
            QTest::qWait(2 * Lag);
            QCOMPARE(scene.told, QStringList());
            QTRY_COMPARE(scene.practice.Clients(), 0);
            SeeNothing();
        }
        scene.program.reset();
        SeeNothing();
    }

private:
    static void SeeNothing() {
        QVERIFY(!QWidget::mouseGrabber() && !QWidget::keyboardGrabber());
        for (const QWidget* window : QApplication::topLevelWidgets())
            QVERIFY2(!window->isVisible(), window->metaObject()->className());
    }

    /// What stands in the dialogs and may have been typed.
    static QStringList Texts(const Scene& scene) {
        QStringList texts;
        for (const Form* form : scene.Forms()) {
            for (const auto* box : form->findChildren<QLineEdit*>())
                texts += box->objectName() + u'=' + box->text();
            for (const auto* list : form->findChildren<QComboBox*>())
                texts += list->objectName() + u'=' + list->currentText();
        }
        return texts;
    }

    static void Dismiss(const Scene& scene) {
        while (scene.CurrentBox())
            QTest::keyClick(scene.CurrentBox(), Qt::Key_Escape);
    }

    /// The loss is told once, and what was waited for is waited for no longer.
    static void LoseLink(Scene& scene, const QStringList& texts) {
        QVERIFY(QTest::qWaitFor([&] { return scene.CurrentBox() && !scene.Link().IsUp(); }));
        QTest::qWait(2 * Lag);
        Dismiss(scene);
        QCOMPARE(scene.told.filter(u"Error: "_s).size(), 1);
        QVERIFY(scene.told.filter(u"Keine Verbindung"_s).isEmpty());
        for (const QString& text : texts)
            QVERIFY2(Texts(scene).contains(text), qPrintable(text));
        for (const auto* bar : scene.Window().findChildren<QProgressBar*>())
            QVERIFY2(!bar->isVisible() || bar->value() == 0, qPrintable(bar->objectName()));
        QVERIFY(!scene.Window().findChild<QDialog*>(u"frmTranslatorWait"_s));

        scene.practice.GetFaults().delay = 0;
        scene.sent.clear();
        scene.Link().Connect();
        QVERIFY(scene.Got(56, 2));
        QCOMPARE(scene.Count(1) + scene.Count(7), 0);
    }

    /// The panel is at hand, and a button sends once.
    static void WorkOn(Scene& scene) {
        QTest::qWait(3 * Lag);
        Dismiss(scene);
        for (Form* form : scene.Forms())
            form->Unload();
        QVERIFY(!QApplication::activeModalWidget());
        scene.practice.GetFaults().delay = 0;
        scene.sent.clear();
        Go(scene, u"press cmdRem(1), got 1 1"_s);
        QVERIFY(scene.isThere);
        QTest::qWait(Lag);
        QCOMPARE(scene.Count(1), 1);
        QCOMPARE(scene.Count(7), 0);
    }
};

SUITE(MomentsTest);

#include "moments_test.moc"
