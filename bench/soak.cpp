// The program under load, with a server in the same process: every reply, every dialog and new connections,
// again and again. Says what memory and files that takes, and fails if they grow.

#include "app/program.h"
#include "silent_server.h"
#include "visit/form_catalog.h"
#include "visit/reply_catalog.h"
#include "wait_for.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>

#include <malloc.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int WarmUpShare = 20;  ///< of the work, one part in so many
constexpr double MostGrowth = 2; ///< MiB
constexpr int Batch = 1000;      ///< replies between two turns of the forms that they open
constexpr double Mebi = 1024 * 1024;

struct Usage {
    double heap = 0;     ///< MiB in use
    double resident = 0; ///< MiB
    int files = 0;       ///< open ones
};

Usage Measure() {
    malloc_trim(0);
    const struct mallinfo2 heap = mallinfo2();
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        qFatal("no /proc");
    const double pages = statm.readAll().split(' ')[1].toDouble();
    statm.close();
    const auto files = QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::AllEntries | QDir::System);
    return {double(heap.uordblks + heap.hblkhd) / Mebi, pages * double(sysconf(_SC_PAGESIZE)) / Mebi,
            int(files.size())};
}

void Settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// The program and its server.
class Soak {
public:
    Soak()
        : program({{SilentServer::Host(), false},
                   QCoreApplication::applicationDirPath(),
                   QStringLiteral("English"),
                   {},
                   server.Port()})
        , services{program.Link(), language, program.MessageBoxes()}
        , status(program.Link())
        , makers(FormMakers(services, status, &program.MainWindow())) {
        QObject::connect(&program.MessageBoxes(), &Boxes::Opened, &program, [this](QMessageBox* box) {
            ++boxes;
            QMetaObject::invokeMethod(box->button(QMessageBox::Ok), &QAbstractButton::click,
                                      Qt::QueuedConnection);
        });
        QObject::connect(&program.Link(), &Session::LogReceived, &program,
                         [this](const QString& text) { isRead = isRead || text == u"read"; });
        program.Start();
        AwaitLink();
        const auto* timStart = program.MainWindow().findChild<QTimer*>(QStringLiteral("timStart"));
        WaitFor([timStart] { return !timStart->isActive(); });
    }

    /// Replies of all types in turn, batch after batch, each with another dialog open.
    void Reply(int count) {
        const std::vector<CatalogReply> replies = CatalogReplies();
        const QByteArray mark = EncodeReply(ReplyType::Log, "    read" + QByteArray(7, '\0'));
        for (int done = 0; done < count;) {
            const int batch = std::min(Batch, count - done);
            OpenForm(size_t(done / Batch));
            for (int i = 0; i < batch; ++i, ++done) {
                server.Client()->write(replies[size_t(done) % replies.size()].Bytes());
                if (server.Client()->bytesToWrite() > Connection::ReadBuffer)
                    WaitFor([this] { return server.Client()->bytesToWrite() == 0; });
            }
            isRead = false;
            server.Client()->write(mark);
            WaitFor([this] { return isRead; });
            CloseAll();
        }
    }

    /// Every dialog, so many times.
    void Open(int count) {
        for (int i = 0; i < count; ++i)
            for (size_t form = 0; form < makers.size(); ++form) {
                OpenForm(form);
                Settle();
                CloseAll();
            }
    }

    /// The client connects anew, after a loss in every other case.
    void Reconnect(int count) {
        for (int i = 0; i < count; ++i) {
            const QPointer<QTcpSocket> last = server.Client();
            if (i % 2 == 0) {
                const int boxesBefore = boxes;
                last->abort();
                WaitFor([&] { return boxes > boxesBefore; });
            }
            program.Link().Connect();
            WaitFor([this, &last] {
                return program.Link().IsUp() && server.Client() != nullptr && server.Client() != last;
            });
            CloseAll();
        }
    }

private:
    void AwaitLink() {
        WaitFor([this] { return program.Link().IsUp() && server.Client() != nullptr; });
    }

    void OpenForm(size_t number) { makers[number % makers.size()]()->ShowModal(); }

    void CloseAll() {
        WaitFor([this] { return program.MessageBoxes().Current() == nullptr; });
        for (Form* form : program.MainWindow().findChildren<Form*>())
            form->Unload();
        Settle();
    }

    SilentServer server;
    Language language;
    Program program;
    FormServices services;
    StatusStore status;
    std::vector<std::function<Form*()>> makers;
    int boxes = 0; ///< that opened
    bool isRead = false;
};

/// Runs one kind of work and prints its row. False if something grew.
bool Row(Soak& soak, const char* what, int count, void (Soak::*work)(int)) {
    QElapsedTimer clock;
    clock.start();
    const int warmUp = std::max(1, count / WarmUpShare);
    (soak.*work)(warmUp);
    const Usage before = Measure();
    (soak.*work)(count - warmUp);
    const Usage after = Measure();
    std::printf("%-15s %9d %9.1f %9.2f %9.2f %9.2f %9.2f %6d %6d\n", what, count,
                double(clock.elapsed()) / 1000, before.heap, after.heap, before.resident, after.resident,
                before.files, after.files);
    const auto holds = [what](bool isTrue, const char* figure) {
        if (!isTrue)
            std::printf("%s: %s grew\n", what, figure);
        std::fflush(stdout);
        return isTrue;
    };
    const bool heapHolds = holds(after.heap - before.heap <= MostGrowth, "the heap");
    const bool memoryHolds = holds(after.resident - before.resident <= MostGrowth, "resident memory");
    return holds(after.files == before.files, "the number of open files") && heapHolds && memoryHolds;
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const auto number = [&](int at, int otherwise) { return argc > at ? std::atoi(argv[at]) : otherwise; };
    Soak soak;
    std::printf("%-15s %9s %9s %19s %19s %13s\n", "what", "count", "seconds", "heap MiB", "resident MiB",
                "files");
    const bool openingsHold = Row(soak, "openings", number(2, 1000), &Soak::Open);
    const bool repliesHold = Row(soak, "replies", number(1, 1'000'000), &Soak::Reply);
    const bool linksHold = Row(soak, "reconnections", number(3, 1000), &Soak::Reconnect);
    return repliesHold && openingsHold && linksHold ? 0 : 1;
}
