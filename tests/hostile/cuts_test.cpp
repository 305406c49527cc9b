#include "hostile/recorded_session.h"

#include "link/capabilities.h"
#include "support/practice_rig.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QProgressBar>
#include <QSignalSpy>

#include <map>

using namespace Qt::StringLiterals;

namespace {

const QString NoPage = u"[MAIN]\n[END]\n"_s;
const QString TwoPages = u"[MAIN]\n[MOD]0,0[SIZE]900,300[PANEL]A\n[MOD]0,300[SIZE]900,300[PANEL]B\n[END]\n"
                         u"[A]\n[POS]0,900[SIZE]900,300[TEXT]x[REMOTE]tv[COMMAND]on\n"
                         u"[POS]0,1800[SIZE]900,300[TEXT]y[REMOTE]tv[COMMAND]on;on\n[END]\n"
                         u"[B]\n[POS]0,900[SIZE]900,300[TEXT]z[REMOTE]tv[COMMAND]no\n[END]\n"_s;

/// One of everything: few bytes, so that each of them can be the last.
World SmallWorld(const QString& firmware, quint32 capabilities) {
    World world = World::LivingRoom();
    world.remotes = {{u"tv"_s, {{u"on"_s}}}};
    world.buses = {world.buses[5]};
    DeviceEntry device;
    device.Version = firmware;
    device.Capabilities = capabilities;
    world.buses[0].devices = {{0, device}};
    const RecordSet translator = *world.translatorSets.Find(u"Demo"_s);
    IRDBElementRecord element;
    element.ElementKind = 8; // a remote
    element.number = 1;
    element.remote = u"tv"_s;
    world.translatorSets.Clear();
    world.translatorSets.Store(u"a"_s, translator);
    world.databaseSets.Clear();
    world.databaseSets.Store(u"a"_s, {Encode(IRDBGlobalRecord()), {Encode(element)}});
    world.pageFiles = {{u"i"_s, 7, u"1"_s}};
    return world;
}

void Turn() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// When the session has said this so often, the hand does that.
struct Step {
    const char* signal;
    int count;
    std::function<void()> act = [] {};
};

/// One use of the program over one connection.
struct Scene {
    QString form = {};                             ///< where it takes place; the main window if empty
    QString exit = {};                             ///< closes the form
    QStringList enabled = {};                      ///< of the form, after a cut
    QList<std::pair<QString, QString>> typed = {}; ///< what the form must keep: box and text
    Scene* opens = nullptr;                        ///< opens the form, which then stays over the connections
    std::function<void()> before = [] {};          ///< done ahead of the connection
    std::vector<Step> steps = {};
    Recording recording = {};
};

/// Keeps the windows from being painted, which nobody looks at and takes a third of the time.
class Painter : public QObject {
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::Show && object->isWidgetType())
            if (auto* widget = static_cast<QWidget*>(object); widget->isWindow())
                widget->setUpdatesEnabled(false);
        return false;
    }
};

/// The program and a server, with a recorder between them.
class Stage : public PracticeRig {
public:
    Stage(const QString& layout, const QString& firmware, quint32 capabilities)
        : PracticeRig(layout) {
        practice.GetWorld() = SmallWorld(firmware, capabilities);
        practice.GetOutcomes().learnTime = 5;
        options.port = relay.Port();
        qApp->installEventFilter(&painter);
        Start();
        const QMetaObject& meta = Session::staticMetaObject;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
            if (meta.method(i).methodType() == QMetaMethod::Signal)
                spies[meta.method(i).name()] = std::make_unique<QSignalSpy>(&Link(), meta.method(i));
    }

    int Heard(const char* signal) const { return int(spies.at(signal)->size()); }

    QWidget* Shown(const QString& form) const {
        for (auto* each : Window().findChildren<Form*>(form))
            if (each->isVisible())
                return each;
        return nullptr;
    }
    template <class Control> Control* In(const QString& form, const QString& name) const {
        const QWidget* shown = form.isEmpty() ? &Window() : Shown(form);
        return shown != nullptr ? shown->findChild<Control*>(name) : nullptr;
    }
    void Click(const QString& form, const QString& name) const {
        if (auto* button = In<QAbstractButton>(form, name))
            button->click();
    }
    /// A timer is due.
    void Fire(const QString& form, const QString& name) const {
        if (auto* timer = In<QTimer>(form, name); timer != nullptr && timer->isActive()) {
            QTimerEvent event(timer->timerId());
            QCoreApplication::sendEvent(timer, &event);
        }
    }
    QLineEdit* Line(const QString& form, const QString& name) const {
        auto* list = In<QComboBox>(form, name);
        return list != nullptr ? list->lineEdit() : In<QLineEdit>(form, name);
    }
    bool Close(const Scene& scene) const {
        if (!scene.form.isEmpty())
            Click(scene.form, scene.exit);
        Turn();
        return Shown(scene.form) == nullptr;
    }

    /// Connects and goes through the steps; true if that ends as it should, with the cut or with the last
    /// step.
    bool Play(const Scene& scene) {
        scene.before();
        for (const auto& [name, spy] : spies)
            spy->clear();
        Link().Connect();
        if (Link().PendingOp != Pending::None || Link().FlashIsDatabase)
            return false;
        auto step = scene.steps.begin();
        QElapsedTimer clock;
        clock.start();
        while (!clock.hasExpired(10000)) {
            Turn();
            for (; step != scene.steps.end() && Heard(step->signal) >= step->count; ++step)
                if (Heard("LinkFailed") == 0)
                    step->act();
            if (relay.next.ending == Ending::Holds ? step == scene.steps.end() : Heard("LinkFailed") > 0)
                return Heard("LinkFailed") == (relay.next.ending == Ending::Holds ? 0 : 1);
        }
        return false;
    }

    /// The whole scene, on a connection that holds.
    bool Works(Scene& scene, bool stays = false) {
        if (scene.opens != nullptr && Shown(scene.form) == nullptr && !Works(*scene.opens, true))
            return false;
        relay.next = {scene.recording.empty() ? nullptr : &scene.recording};
        return Play(scene) && (stays || scene.opens != nullptr || Close(scene));
    }

    /// Time passes, and the user reads what there is. What is wrong after a cut; null if nothing is.
    QString Fault(const Scene& scene) {
        QStringList told;
        const auto readBoxes = [&] {
            while (QMessageBox* box = CurrentBox()) {
                told += box->windowTitle() + u": "_s + box->text();
                box->reject();
            }
        };
        readBoxes();
        Click(u"frmIRDBStatus"_s, u"cmdOK"_s);
        Click(u"frmAnalogIO"_s, u"cmdEnd"_s);
        for (const QTimer* timer : Window().findChildren<QTimer*>())
            if (!timer->objectName().isEmpty())
                Fire(timer->parent()->inherits("Form") ? timer->parent()->objectName() : QString(),
                     timer->objectName());
        Turn();
        readBoxes();
        if (told.join(u'|').count(u"Calvoris: ") != 1)
            return u"told: "_s + told.join(u" | "_s);
        if (Heard("SendFailed") > 0 || Window().findChild<PanelSending*>()->HeldButton() != -1 ||
            Shown(u"frmTranslatorWait"_s) != nullptr)
            return u"something goes on"_s;
        if (!Window().isEnabled() || QApplication::activeModalWidget() != Shown(scene.form))
            return u"a window is in the way"_s;
        const QWidget* form = scene.form.isEmpty() ? &Window() : Shown(scene.form);
        if (form == nullptr)
            return scene.opens != nullptr ? u"the form has gone"_s : QString();
        for (const auto* bar : form->findChildren<QProgressBar*>())
            if (bar->isVisible() && bar->value() > bar->minimum())
                return u"something seems to go on"_s;
        for (const QString& name : scene.enabled)
            if (!form->findChild<QWidget*>(name)->isEnabled())
                return name + u" is off"_s;
        for (const auto& [name, text] : scene.typed)
            if (Line(scene.form, name)->text() != text)
                return name + u" has lost its text"_s;
        return scene.opens != nullptr || Close(scene) ? QString() : u"the form can't be closed"_s;
    }

    /// Every way in which the server can go in every place of the scene.
    void Check(Scene& scene) {
        QVERIFY(Works(scene));
        scene.recording = relay.recorded;
        qsizetype size = 0;
        QList<qsizetype> ends = {0};
        for (const RecordedFrame& frame : scene.recording)
            ends += size += frame.bytes.size();
        for (qsizetype cut = 0; cut <= size; ++cut)
            for (const int way : {0, 1, 2, 3}) {
                const bool isEnd = ends.contains(cut);
                const bool atOnce = way % 2 != 0;
                if (atOnce ? !isEnd : cut == size)
                    continue;
                relay.next = {&scene.recording, way < 2 ? Ending::Close : Ending::Reset, cut, atOnce};
                QString fault = Play(scene) ? Fault(scene) : u"no cut"_s;
                if (fault.isNull() && isEnd && !(Close(scene) && Works(scene)))
                    fault = u"it doesn't work any more"_s;
                if (!fault.isNull())
                    QFAIL(qPrintable(scene.form + u", way %1, byte %2 of %3: "_s.arg(way).arg(cut).arg(size) +
                                     fault));
            }
    }

    Painter painter;
    RecordedSession relay{practice.Port()};
    std::map<QByteArray, std::unique_ptr<QSignalSpy>> spies;
};

} // namespace

class CutsTest : public QObject {
    Q_OBJECT

private slots:
    void PanelAndHold() {
        Stage stage(TwoPages, {}, 0);
        Scene pages{.enabled = {u"cmdModeP(1)"_s, u"cmdModeP(2)"_s}};
        const auto page = [&](const char* name) { stage.Click({}, QLatin1StringView(name)); };
        const auto mouse = [&](QTest::MouseAction action, const char* name) {
            if (stage.Button(name) != nullptr)
                QTest::mouseEvent(action, stage.Button(name), Qt::LeftButton, {}, {});
        };
        pages.before = [&] {
            mouse(QTest::MouseRelease, "cmdRem(1)");
            page("cmdModeP(1)");
            Turn();
        };
        pages.steps = {{"LinkUp", 1, [&] { stage.Fire({}, u"timStart"_s); }},
                       {"CommandChecked", 2, [&] { page("cmdModeP(2)"); }},
                       {"CommandChecked", 3, [&] { page("cmdModeP(1)"); }},
                       {"CommandChecked", 5}};
        stage.Check(pages);

        Scene hold{.enabled = pages.enabled, .before = pages.before};
        hold.steps = {{"LinkUp", 1,
                       [&] {
                           stage.Find<QTimer>("timStart")->stop();
                           mouse(QTest::MousePress, "cmdRem(1)");
                       }},
                      {"CodeReceived", 1, [&] { stage.Fire({}, u"Timer"_s); }},
                      {"CodeReceived", 3, [&] { mouse(QTest::MouseRelease, "cmdRem(1)"); }},
                      {"CodeReceived", 4,
                       [&] {
                           mouse(QTest::MousePress, "cmdRem(2)");
                           mouse(QTest::MouseRelease, "cmdRem(2)");
                       }},
                      {"CodeReceived", 5, [&] { stage.Fire({}, u"timIntercommand"_s); }},
                      {"CodeReceived", 6}};
        stage.Check(hold);
    }

    void Learning() {
        Stage stage(NoPage, u"G6.05.10"_s, 0);
        Scene open{.form = u"frmProgramm"_s, .exit = u"cmdClose"_s, .enabled = {u"cmdClose"_s}};
        open.steps = {{"LinkUp", 1, [&] { stage.Action("mnuModus(11)")->trigger(); }}, {"BusesReady", 1}};
        QVERIFY(stage.Works(open));
        open.recording = stage.relay.recorded;

        Scene learn{.form = open.form, .exit = open.exit, .enabled = open.enabled, .opens = &open};
        const auto type = [&](const QString& box, const QString& text) {
            stage.Line(learn.form, box)->setText(text);
            learn.typed += {box, text};
        };
        // What the server says of a remote clears the box for the next command.
        const auto forget = [&] { learn.typed = {{u"txtTimeout"_s, u"9"_s}}; };
        connect(&stage.Link(), &Session::LearnStateReceived, &stage.practice, forget);
        learn.before = [&] {
            type(u"txtTimeout"_s, u"9"_s);
            forget();
        };
        learn.steps = {{"BusesReady", 1, [&] { stage.Fire(learn.form, u"Timer1"_s); }},
                       {"NamesReady", 1,
                        [&] {
                            type(u"txtRemote"_s, u"n"_s);
                            stage.Click(learn.form, u"cmdRemote"_s);
                        }},
                       {"LearnStateReceived", 2,
                        [&] {
                            type(u"txtCommand"_s, u"c"_s);
                            stage.Click(learn.form, u"cmdLearn"_s);
                        }},
                       {"LearnStateReceived", 3}};
        stage.Check(learn);
    }

    void SettingsAndAnalogInputs() {
        Stage stage(NoPage, u"B4.04.12"_s, 0);
        Scene set{.form = u"frmSetModus"_s, .exit = u"cmdEnde"_s, .enabled = {u"cmdSet"_s, u"cmdEnde"_s}};
        set.steps = {{"LinkUp", 1, [&] { stage.Action("mnuIO(10)")->trigger(); }},
                     {"AnalogReceived", 1, [&] { stage.Action("mnuModus(10)")->trigger(); }},
                     {"StatusReceived", 1, [&] { stage.Fire(u"frmAnalogIO"_s, u"Timer1"_s); }},
                     {"AnalogReceived", 2, [&] {
                          stage.Click(set.form, u"cmdSet"_s);
                          stage.Click(u"frmAnalogIO"_s, u"cmdEnd"_s);
                          stage.Fire(u"frmAnalogIO"_s, u"Timer1"_s);
                      }}};
        stage.Check(set);
    }

    void Translator() { CheckSets("mnuModus(13)", u"frmTranslator"_s, Capability::Translator); }
    void Database() { CheckSets("mnuModus(14)", u"frmDeviceDB"_s, Capability::Database); }

    void FreeSendAndWebPages() {
        Stage stage(NoPage, u"G6.05.10"_s, Capability::Pages);
        Scene send{.form = u"frmSendFree"_s, .exit = u"cmdCancel"_s, .enabled = {u"cmdCancel"_s}};
        const auto pick = [&](const QString& list) {
            stage.In<QComboBox>(send.form, list)->setCurrentIndex(0);
        };
        send.steps = {{"LinkUp", 1, [&] { stage.Action("mnuSendItem(10)")->trigger(); }},
                      {"NamesReady", 1, [&] { pick(u"txtRemote"_s); }},
                      {"CommandsReady", 1,
                       [&] {
                           pick(u"txtCommand"_s);
                           stage.Click(send.form, u"cmdSend"_s);
                       }},
                      {"CodeReceived", 1}};
        stage.Check(send);

        Scene web{.form = u"frmHTML"_s, .exit = u"cmdDone"_s, .enabled = {u"cmdFlash"_s, u"cmdDone"_s}};
        web.steps = {{"LinkUp", 1, [&] { stage.Action("mnuModus(15)")->trigger(); }},
                     {"TextReceived", 1,
                      [&] {
                          stage.Click(web.form, u"cmdAll"_s);
                          stage.Click(web.form, u"cmdFlash"_s);
                      }},
                     {"TextReceived", 2, [&] { stage.AnswerBox(); }}};
        stage.Check(web);
    }

private:
    /// Opening, loading, and storing with a flash behind it: the dialogs of both kinds of sets.
    void CheckSets(const char* menu, const QString& form, quint32 capability) {
        const bool isDatabase = capability == Capability::Database;
        Stage stage(NoPage, u"G6.05.10"_s, capability);
        const auto click = [&](const QString& name) { return [&, name] { stage.Click(form, name); }; };
        Scene open{.form = form, .exit = u"cmbExit"_s, .enabled = {u"cmdFlash"_s, u"cmbExit"_s}};
        open.steps = {{"LinkUp", 1, [&] { stage.Action(menu)->trigger(); }}, {"NamesReady", 2}};
        stage.Check(open);

        Scene load{.form = form, .exit = open.exit, .enabled = open.enabled, .opens = &open};
        load.enabled += {u"cmdSave"_s, u"cmdLoad"_s};
        load.typed = {{u"txtName"_s, u"a"_s}};
        load.before = [&] {
            stage.Line(form, u"txtName"_s)->clear();
            stage.Line(form, u"txtName"_s)->insert(u"a"_s);
        };
        // The translator's dialog asks for its lists again.
        const Step up = isDatabase ? Step{"LinkUp", 1} : Step{"NamesReady", 2};
        load.steps = {{up.signal, up.count, click(u"cmdLoad"_s)},
                      {isDatabase ? "DatabasePageReceived" : "TranslatorPageReceived", 1}};
        stage.Check(load);

        Scene save = load;
        save.recording.clear();
        save.opens = &load;
        save.steps = {{up.signal, up.count, click(u"cmdSave"_s)},
                      {"OverwriteAsked", 1, [&] { stage.AnswerBox(); }},
                      {"Acknowledged", 1, click(u"cmdFlash"_s)},
                      {isDatabase ? "DatabaseFlashEnded" : "TranslatorFlashEnded", 1, [&] {
                           isDatabase ? stage.Click(u"frmIRDBStatus"_s, u"cmdOK"_s) : stage.AnswerBox();
                       }}};
        stage.Check(save);
    }
};

SUITE(CutsTest);

#include "cuts_test.moc"
