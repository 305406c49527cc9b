#pragma once

#include "app/program_rig.h"
#include "forms/form.h"

#include <QDeadlineTimer>
#include <QSignalSpy>

#include <ctime>
#include <malloc.h>

#if defined(__SANITIZE_ADDRESS__)
// Of the sanitizer's run-time library; not every compiler brings the header.
extern "C" size_t __sanitizer_get_current_allocated_bytes(); // NOLINT(bugprone-reserved-identifier)
#endif

/// What a flood does to the program: how long the event loop keeps the window waiting, and how far the heap
/// grows.
class FloodWatch : public QObject {
public:
#if defined(__SANITIZE_ADDRESS__)
    static constexpr bool IsSanitized = true;
    static qint64 HeapInUse() {
        return qint64(__sanitizer_get_current_allocated_bytes());
    }
#else
    static constexpr bool IsSanitized = false;
    static qint64 HeapInUse() {
        const auto info = mallinfo2();
        return qint64(info.uordblks) + qint64(info.hblkhd);
    }
#endif

    FloodWatch() {
        clock.start();
        timer.setTimerType(Qt::PreciseTimer);
        connect(&timer, &QTimer::timeout, this, &FloodWatch::Look);
        timer.start(1);
    }

    void Look() {
        longest = std::max(longest, clock.restart());
        const auto now = std::clock();
        busiest = std::max(busiest, double(now - lastTurn) * 1000 / CLOCKS_PER_SEC);
        lastTurn = now;
        if (++looks % 16 == 1)
            heap = std::max(heap, HeapInUse());
    }

    /// Milliseconds of the longest wait for a turn; machine and other programs count.
    qint64 LongestWait() const {
        return longest;
    }
    /// Milliseconds of this process's own work in the busiest turn.
    double BusiestTurn() const {
        return busiest;
    }
    /// Bytes at the most.
    qint64 Growth() const {
        return std::max(heap, HeapInUse()) - before;
    }

private:
    QTimer timer;
    QElapsedTimer clock;
    std::clock_t lastTurn = std::clock();
    qint64 longest = 0;
    double busiest = 0;
    qint64 before = HeapInUse();
    qint64 heap = before;
    int looks = 0;
};

/// A dialog that is open during a flood.
struct FloodedDialog {
    const char* form;
    const char* entry;      ///< of the menu; none: the panel alone
    const char* typed = ""; ///< the text box in which something stands
    bool needsStatus = false;
};

inline constexpr FloodedDialog FloodedDialogs[] = {
    {"frmRemote", ""},
    {"frmIP", "mnuModus(18)", "txtIP"},
    {"frmSendFree", "mnuSendItem(10)", "txtRemote"},
    {"frmProgramm", "mnuModus(11)", "txtCommand"},
    {"frmTranslator", "mnuModus(13)", "txtName", true},
    {"frmDeviceDB", "mnuModus(14)", "txtName", true},
    {"frmHTML", "mnuModus(15)", "", true},
    {"frmDeviceMode", "mnuModus(10)", "", true},
    {"frmAnalogIO", "mnuIO(10)"},
};

/// A flood of replies that answer nothing.
struct Flood {
    const char* name;
    QByteArray piece;
    int times;
};

/// With a translator, a database and page files.
inline QByteArray Status() {
    const QByteArray entry = Raw::Entry("T5.20.01", 0x82000200);
    return Raw::StatusPage(0, 1, {{0, 0, entry}, {0, 1, entry}});
}

inline std::vector<Flood> Floods() {
    const auto elements = [](int type) {
        QByteArray all;
        for (int i = 0; i < 40; ++i) {
            const QByteArray name = "n" + QByteArray::number(i);
            all += type == 7 ? Raw::Command(name) : type == 18 ? Raw::Bus(name) : Raw::Name(name);
        }
        return all;
    };
    std::vector<Flood> floods = {
        {"errors", Raw::Result(9, 9, "x").repeated(100), 100},
        {"late learn errors", Raw::Result(4, 3, "x").repeated(100), 10},
        {"questions", Raw::Result(35, 0, "x").repeated(100), 10},
        {"checks", Raw::Result(28, 1).repeated(100), 10},
        {"acknowledgements", Raw::Ack().repeated(1000), 10},
        {"codes", Raw::Received("x", "tv", "on").repeated(100), 10},
        {"flashes", (Raw::Received("F0") + Raw::Received("F1") + Raw::Received("F2")).repeated(30), 10},
        {"database status", Raw::DatabaseStatus("99999", "64K").repeated(100), 10},
        {"learn states", Raw::Reply(5, QByteArray(264, '\0')).repeated(100), 10},
        {"analog values", Raw::Reply(21, QByteArray(26, '\2')).repeated(100), 10},
        {"page files", Raw::TextFrame("RESULT_HTML_FILELIST " + QByteArray("a;1;2;").repeated(16'000)), 10},
        {"page flashes", Raw::TextFrame("RESULT_HTML_FLASH Eno").repeated(100), 10},
        {"log lines", Raw::Log(QByteArray(32'000, '\n')), 30},
        {"status", Status(), 30},
        {"status of no end", Raw::StatusPage(0, 255), 30},
        {"status of nothing", Raw::StatusPage(0, 0), 30},
    };
    struct Lie {
        const char* name;
        int offset, count, total, more;
    };
    for (const Lie& lie :
         {Lie{"no end", 0, 40, 32767, 1}, Lie{"huge", 0, 40, 32767, 0}, Lie{"negative", 0, -1, -1, 1},
          Lie{"too few", 0, 40, 3, 1}, Lie{"backwards", -40, 40, 120, 1}, Lie{"a gap", 80, 40, 120, 1},
          Lie{"the last one", 32767, 40, 32767, 1}}) {
        QByteArray pages;
        for (const int type : {6, 16, 17, 18, 7, 8, 15})
            pages += Raw::Page(type, lie.offset, lie.count, lie.total, lie.more, elements(type));
        floods.push_back({lie.name, pages, 10});
    }
    return floods;
}

/// The whole program under a flood.
struct FloodRig : ProgramRig {
    FloodRig()
        : ProgramRig(QStringLiteral("[MAIN]\n[MOD]0,0[SIZE]900,300[PANEL]TV\n[END]\n[TV]\n"
                                    "[POS]0,900[SIZE]900,300[TEXT]x[REMOTE]tv[COMMAND]power\n"
                                    "[POS]0,1800[SIZE]900,300[TEXT]y[REMOTE]tv[COMMAND]a;b;c;d\n[END]\n")) {}

    /// What stands in the text box of the dialog; "typed" if it has none.
    QString Typed(const FloodedDialog& dialog) const {
        const auto* box = TypedBox(dialog);
        return box ? box->property(Property(box)).toString() : QStringLiteral("typed");
    }

    /// With "typed" in its text box.
    bool Open(const FloodedDialog& dialog) {
        if (*dialog.entry == '\0')
            return true;
        Action(dialog.entry)->trigger();
        if (dialog.needsStatus)
            server.Play(Status());
        const bool isOpen = QTest::qWaitFor([&] { return Find<Form>(dialog.form) != nullptr; });
        if (auto* box = TypedBox(dialog))
            box->setProperty(Property(box), QStringLiteral("typed"));
        return isOpen;
    }

    /// Streams the flood and waits until all of it has been read.
    bool Run(const Flood& flood) {
        bool isRead = false;
        const auto watch = QObject::connect(&Link(), &Session::LogReceived,
                                            [&](const QString& text) { isRead = text == u"read"; });
        // The waits of QTest sleep in between.
        const QDeadlineTimer deadline(120'000);
        const auto runUntil = [&](auto isDone) {
            while (!isDone() && !deadline.hasExpired())
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        };
        server.Stream(flood.piece, flood.times);
        runUntil([this] { return !server.IsStreaming(); });
        server.Play(Raw::Log("read"));
        runUntil([&] { return isRead; });
        QObject::disconnect(watch);
        return isRead;
    }

    int VisibleBoxes() const {
        int visible = 0;
        for (const QWidget* window : QApplication::topLevelWidgets())
            visible += window->isVisible() && qobject_cast<const QMessageBox*>(window) != nullptr;
        return visible;
    }

    /// Answers the box on the screen and all behind it; gives their number.
    int AnswerAll() const {
        int answered = 0;
        for (; CurrentBox() != nullptr && answered < 1000; ++answered)
            AnswerBox();
        return answered;
    }

    void CloseAll() const {
        for (Form* form : Window().findChildren<Form*>())
            form->Unload();
    }

private:
    QWidget* TypedBox(const FloodedDialog& dialog) const {
        return *dialog.typed == '\0' ? nullptr : Find<QWidget>(dialog.typed);
    }
    static const char* Property(const QWidget* box) {
        return box->inherits("QComboBox") ? "currentText" : "text";
    }
};
