// The whole program under a hand and a server that do anything at any moment: the input is a row of steps.
// Each input has a program of its own, which is up and linked at first.

#include "app/program.h"
#include "visit/form_catalog.h"
#include "visit/reply_catalog.h"
#include "visit/silent_server.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QContextMenuEvent>
#include <QFile>
#include <QKeyEvent>
#include <QMenu>
#include <QTemporaryDir>

#include <algorithm>

namespace {

constexpr int MostSteps = 40;
constexpr quint16 NoPort = 1; ///< nobody listens there

/// The input, byte by byte; zeros behind its end.
class Steps {
public:
    explicit Steps(QByteArrayView bytes)
        : bytes(bytes) {}

    bool AtEnd() const { return bytes.isEmpty(); }

    QByteArrayView Take(qsizetype count) {
        const QByteArrayView taken = bytes.first(std::min(count, bytes.size()));
        bytes = bytes.sliced(taken.size());
        return taken;
    }
    quint8 Byte() {
        const QByteArrayView one = Take(1);
        return one.isEmpty() ? 0 : quint8(one[0]);
    }
    int Number() { return Byte() << 8 | Byte(); }

    /// One of `choices`; nullptr if there is none.
    template <class T> T* Pick(const QList<T*>& choices) {
        return choices.isEmpty() ? nullptr : choices[Byte() % choices.size()];
    }

private:
    QByteArrayView bytes;
};

void Check(bool holds, const char* rule) {
    if (!holds)
        qFatal("broken: %s", rule);
}

void Settle() {
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
    const QString path = folder.filePath(QStringLiteral("Remote.lyt"));
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
    Game(SilentServer& server, Steps steps)
        : server(server)
        , steps(steps)
        , program({{SilentServer::Host(), false},
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
        program.Start();
        StopPainting();
        AwaitLink();
        Fire(window.findChild<QTimer*>(QStringLiteral("timStart")));
    }

    void Play() {
        for (int step = 0; step < MostSteps && !steps.AtEnd() && !hasEnded; ++step) {
            Step();
            if (session.RemoteHost != SilentServer::Host() && !hasEnded) { // somebody's address was typed
                session.RemoteHost = SilentServer::Host();
                session.Connect();
            }
            StopPainting();
            Settle();
            CheckRules();
        }
        CheckTexts();
    }

private:
    void Step() {
        switch (steps.Byte() % 12) {
        case 0: Trigger(); break;
        case 1: OpenForm(); break;
        case 2: FeedReply(); break;
        case 3: Feed(steps.Take(steps.Byte()).toByteArray()); break;
        case 4: ChangeLink(); break;
        case 5: Fire(steps.Pick(window.findChildren<QTimer*>())); break;
        case 6:
            if (QWidget* top = Top())
                top->close();
            break;
        default: Touch(); break;
        }
    }

    /// A window that takes the user's input.
    QWidget* Top() {
        if (QWidget* popup = QApplication::activePopupWidget())
            return popup;
        if (QWidget* modal = QApplication::activeModalWidget())
            return modal;
        QWidgetList open{&window};
        for (Form* form : window.findChildren<Form*>())
            if (form->isVisible())
                open += form;
        return steps.Pick(open);
    }

    void Trigger() {
        if (Top() != &window)
            return;
        QAction* action = steps.Pick(window.findChildren<QAction*>());
        if (action->isEnabled() && action->isVisible())
            action->trigger();
    }

    void OpenForm() {
        static const std::vector<FormMaker> makers = FormMakers();
        const FormMaker& make = makers[steps.Byte() % makers.size()];
        if (QApplication::activeModalWidget() != nullptr)
            return;
        // The user can't load a form twice.
        Form* form = make({session, language, boxes}, &window);
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
        const bool wasUp = session.IsUp();
        switch (steps.Byte() % 4) {
        case 0:
            if (wasUp)
                server.Client()->abort();
            break;
        case 1:
            if (wasUp)
                server.Client()->disconnectFromHost();
            break;
        case 2:
            session.RemotePort = NoPort;
            session.Connect();
            return;
        case 3:
            session.RemotePort = server.Port();
            session.Connect();
            AwaitLink();
            return;
        }
        Await([&] { return !session.IsUp(); }, "the client notices the end of a connection");
    }

    void AwaitLink() {
        Await([&] { return session.IsUp() && server.Client() != nullptr; }, "the client connects");
    }

    static void Fire(QTimer* timer) {
        if (timer == nullptr || !timer->isActive())
            return;
        QTimerEvent event(timer->timerId());
        QCoreApplication::sendEvent(timer, &event);
    }

    static void Type(QWidget* widget, int key, const QString& text = {}) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(widget, &press);
    }

    /// Works a control of a window that can be reached.
    void Touch() {
        QWidget* top = Top();
        if (top == nullptr)
            return;
        if (auto* menu = qobject_cast<QMenu*>(top)) {
            QAction* action = steps.Pick(menu->actions());
            menu->close();
            if (action != nullptr && action->isEnabled() && action->isVisible())
                action->trigger();
            return;
        }
        QWidgetList controls;
        for (QWidget* child : top->findChildren<QWidget*>())
            if (child->isVisible() && child->isEnabled() && child->window() == top &&
                child->focusPolicy() != Qt::NoFocus)
                controls += child;
        QWidget* control = steps.Pick(controls);
        if (auto* button = qobject_cast<QAbstractButton*>(control))
            button->click();
        else if (auto* combo = qobject_cast<QComboBox*>(control); combo != nullptr && combo->count() > 0)
            Choose(*combo, steps.Byte());
        else if (auto* tabs = qobject_cast<QTabBar*>(control); tabs != nullptr && tabs->count() > 0)
            tabs->setCurrentIndex(steps.Byte() % tabs->count());
        else if (auto* view = qobject_cast<QAbstractItemView*>(control))
            WorkRow(*view);
        else if (control != nullptr)
            TypeInto(*control);
    }

    void Choose(QComboBox& combo, int choice) {
        if (combo.isEditable() && choice % 4 == 0)
            return TypeInto(combo);
        const int index = choice % combo.count();
        combo.setCurrentIndex(index);
        emit combo.activated(index);
    }

    void WorkRow(QAbstractItemView& view) {
        const int choice = steps.Byte() % 24;
        if (choice < 8) {
            Type(&view, Qt::Key_Home + choice);
        } else if (choice < 16) {
            Type(&view, Qt::Key_Escape + choice - 8);
        } else {
            QContextMenuEvent menu(QContextMenuEvent::Keyboard, {}, {});
            QCoreApplication::sendEvent(&view, &menu);
        }
    }

    void TypeInto(QWidget& widget) {
        const int length = steps.Byte();
        if (length >= 0x80)
            Type(&widget, Qt::Key_Escape + (length & 0x1F));
        else
            for (const char c : steps.Take(length))
                Type(&widget, 0, QString(QLatin1Char(c)));
    }

    /// Nobody looks at the windows.
    static void StopPainting() {
        for (QWidget* widget : QApplication::topLevelWidgets())
            widget->setUpdatesEnabled(false);
    }

    void CheckRules() const {
        if (hasEnded)
            return;
        int shown = 0;
        bool isModalUp = false;
        for (const QWidget* widget : QApplication::topLevelWidgets()) {
            shown += widget->isVisible() && qobject_cast<const QMessageBox*>(widget) != nullptr;
            isModalUp = isModalUp || (widget->isVisible() && widget->isModal());
        }
        Check(shown <= 1, "one box at a time");
        Check((shown == 1) == (boxes.Current() != nullptr), "the box is on the screen");
        Check(boxes.Waiting() <= Boxes::WaitingMax, "few boxes wait");
        Check(boxes.Waiting() == 0 || shown == 1, "no box waits for nothing");
        Check(shown == 0 || QApplication::activeModalWidget() == boxes.Current(), "the box can be answered");
        Check(isModalUp == (QApplication::activeModalWidget() != nullptr), "what is modal is up");
        Check(window.isVisible() && window.isEnabled(), "the window stands");
    }

    void CheckTexts() const {
        for (const QWidget* widget : QApplication::allWidgets())
            if (const auto* label = qobject_cast<const QLabel*>(widget))
                Check(label->textFormat() == Qt::PlainText || !Qt::mightBeRichText(label->text()),
                      "texts are plain");
    }

    SilentServer& server;
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
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig";
}

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    new QApplication(*argc, *argv); // the library leaves without an end of main
    QApplication::setQuitOnLastWindowClosed(false);
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type == QtFatalMsg)
            fprintf(stderr, "%s\n", qPrintable(text));
    });
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size) {
    static SilentServer server;
    Game(server, Steps({data, qsizetype(size)})).Play();
    Settle();
    return 0;
}
