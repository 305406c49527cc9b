// The whole program under a hand and a server that do anything at any moment: the input is a row of steps.
// Each input has a program of its own, which is up and linked at first.

#include "app/program.h"
#include "fuzz/hand.h"
#include "practice/practice_server.h"
#include "visit/form_catalog.h"
#include "visit/reply_catalog.h"

#include <QFile>
#include <QTemporaryDir>

namespace {

constexpr int MostSteps = 24;
constexpr quint16 NoPort = 1; ///< nobody listens there

const QString Host = QStringLiteral("127.0.0.1");

void Check(bool holds, const char* rule) {
    if (!holds)
        qFatal("broken: %s", rule);
}

void Settle() {
    for (int turn = 0; turn < 3; ++turn) // the server answers within these
        QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

template <class Condition> void Await(Condition condition, const char* what) {
    for (int turn = 0; !condition(); ++turn) {
        Check(turn < 10'000, what);
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

QString LayoutFile() {
    static const QTemporaryDir folder;
    QString path = folder.filePath(QStringLiteral("Remote.lyt"));
    QFile file(path);
    if (!file.exists() && file.open(QIODevice::WriteOnly))
        file.write("[MAIN]\n[MOD]0,0[SIZE]900,300[PANEL]TV\n[END]\n[TV]\n"
                   "[POS]0,900[SIZE]900,300[TEXT]x[REMOTE]tv[COMMAND]power\n"
                   "[POS]0,1800[SIZE]900,300[TEXT]y[REMOTE]tv[COMMAND]a;b\n"
                   "[POS]0,2700[SIZE]900,300[TEXT]z[REMOTE]**rs232[COMMAND]z\n[END]\n");
    return path;
}

/// One program and those who play with it.
class Game {
public:
    Game(PracticeServer& server, const World& startWorld, Steps steps)
        : server(server)
        , steps(steps)
        , program({{Host, false},
                   QCoreApplication::applicationDirPath(),
                   QStringLiteral("German"),
                   LayoutFile(),
                   server.Port()})
        , window(program.MainWindow())
        , session(program.Link())
        , boxes(program.MessageBoxes())
        , reader(session) {
        QObject::connect(&program, &Program::Ended, &program, [this] { hasEnded = true; });
        QObject::connect(&session, &Session::LinkUp, &program, [this] { reader.Reset(); });
        server.GetWorld() = startWorld;
        server.GetFaults() = {};
        server.GetOutcomes().learnTime = 1;
        program.Start();
        StopPainting();
        AwaitLink();
        Fire(window.findChild<QTimer*>(QStringLiteral("timStart")));
    }

    void Play() {
        for (int step = 0; step < MostSteps && !steps.AtEnd() && !hasEnded; ++step) {
            Step();
            if (session.RemoteHost != Host && !hasEnded) { // somebody's address was typed
                session.RemoteHost = Host;
                session.Connect();
            }
            StopPainting();
            Settle();
            if (!hasEnded)
                CheckRules();
        }
        for (const QWidget* widget : QApplication::allWidgets())
            if (const auto* label = qobject_cast<const QLabel*>(widget))
                Check(label->textFormat() == Qt::PlainText || !Qt::mightBeRichText(label->text()),
                      "texts are plain");
    }

private:
    void Step() {
        Hand hand(steps);
        const int what = steps.Byte() % 24;
        if (what < 4 && QApplication::activeModalWidget() == nullptr)
            what < 2 ? Trigger() : OpenForm();
        else if (what < 15)
            hand.Work(*hand.Top(window));
        else if (what < 18)
            FeedReply();
        else if (what < 20)
            Fire(steps.Pick(window.findChildren<QTimer*>()));
        else if (what < 21)
            Feed(steps.Take(steps.Byte() % 32).toByteArray());
        else if (what < 22)
            ChangeLink();
        else if (QWidget* top = hand.Top(window); top != &window || steps.Byte() == 0)
            top->close();
    }

    void Trigger() {
        QAction* action = steps.Pick(window.findChildren<QAction*>());
        if (action->isEnabled() && action->isVisible())
            action->trigger();
    }

    void OpenForm() {
        const StatusStore status(session);
        const FormServices services{session, language, boxes};
        const auto makers = FormMakers(services, status, &window);
        // The user can't load a form twice.
        Form* form = makers[steps.Byte() % makers.size()]();
        if (window.findChildren<Form*>(form->objectName()).size() > 1)
            form->Unload();
        else
            form->ShowModal();
    }

    /// A reply of the catalog, perhaps cut, with some of its bytes changed.
    void FeedReply() {
        static const std::vector<CatalogReply> replies = CatalogReplies();
        CatalogReply reply = replies[steps.Byte() % replies.size()];
        const int what = steps.Byte();
        if (what & 0x80)
            reply.payload.truncate(steps.Number());
        for (int change = 0; change < (what & 7) && !reply.payload.isEmpty(); ++change)
            reply.payload[steps.Number() % reply.payload.size()] = char(steps.Byte());
        Feed(reply.Bytes());
    }

    void Feed(const QByteArray& bytes) {
        QByteArrayView input(bytes);
        while (!input.isEmpty())
            reader.Read(input);
    }

    void ChangeLink() {
        Faults& faults = server.GetFaults();
        switch (steps.Byte() % 8) {
        case 0: faults.silent = !faults.silent; return;
        case 1: faults.twice = !faults.twice; return;
        case 2: faults.pieceSize = steps.Byte(); return;
        case 3: server.CloseClients(); break;
        case 4: server.ResetClients(); break;
        case 5:
            session.RemotePort = NoPort;
            session.Connect();
            break;
        default:
            session.RemotePort = server.Port();
            session.Connect();
            return AwaitLink();
        }
        Await([&] { return !session.IsUp(); }, "the client notices the end of a connection");
    }

    void AwaitLink() {
        Await([&] { return session.IsUp(); }, "the client connects");
    }

    static void Fire(QTimer* timer) {
        if (timer == nullptr || !timer->isActive())
            return;
        QTimerEvent event(timer->timerId());
        QCoreApplication::sendEvent(timer, &event);
    }

    /// Nobody looks at the windows.
    static void StopPainting() {
        for (QWidget* widget : QApplication::topLevelWidgets())
            widget->setUpdatesEnabled(false);
    }

    void CheckRules() const {
        int shown = 0;
        int modal = 0;
        for (const QWidget* widget : QApplication::topLevelWidgets()) {
            shown += widget->isVisible() && qobject_cast<const QMessageBox*>(widget) != nullptr;
            modal += widget->isVisible() && widget->isModal();
        }
        Check(shown <= 1, "one box at a time");
        Check((shown == 1) == (boxes.Current() != nullptr), "the box is on the screen");
        Check(boxes.Waiting() <= Boxes::WaitingMax, "few boxes wait");
        Check(boxes.Waiting() == 0 || shown == 1, "no box waits for nothing");
        Check(shown == 0 || QApplication::activeModalWidget() == boxes.Current(), "the box can be answered");
        Check((modal > 0) == (QApplication::activeModalWidget() != nullptr), "what is modal is up");
        Check(window.isVisible() && window.isEnabled(), "the window stands");
    }

    PracticeServer& server;
    Steps steps;
    Language language;
    Program program;
    frmRemote& window;
    Session& session;
    Boxes& boxes;
    ReplyReader reader; ///< beside that of the session, so that no socket stands between
    bool hasEnded = false;
};

} // namespace

/// What the library of the fonts keeps for good.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig";
}

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    new QApplication(*argc, *argv); // the library leaves without an end of main
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) {
        if (text.startsWith(QStringLiteral("This plugin does not support ")))
            return; // it has no screen
        fprintf(stderr, "%s\n", qPrintable(text));
        abort();
    });
    return 0;
}

extern "C" size_t LLVMFuzzerCustomMutator(unsigned char* data, size_t size, size_t mostSize, unsigned seed) {
    return GrowSteps(data, size, mostSize, seed);
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size) {
    static PracticeServer server;
    static World world;
    static const bool isUp = server.Listen();
    Check(isUp, "a port is free");
    if (world.remotes.empty()) {
        world = World::LivingRoom();
        world.AddLivingRoomSets();
    }
    Game(server, world, Steps({data, qsizetype(size)})).Play();
    Settle();
    return 0;
}
