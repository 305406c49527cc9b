#include "ratio.h"

#include "app/program.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/// A layout with two pages of 256 buttons each.
QByteArray FullLayout() {
    QByteArray layout = "[MAIN]\n[FRM]15000,12000\n";
    for (int page = 1; page <= 2; ++page)
        layout += "[MOD]" + QByteArray::number(page * 1500) + ",60[SIZE]1200,400[TEXT]Page[PANEL]p" +
                  QByteArray::number(page) + "\n";
    layout += "[END]\n";
    for (int page = 1; page <= 2; ++page) {
        layout += "[p" + QByteArray::number(page) + "]\n[BCOLOR]8404992[FCOLOR]16777215\n";
        for (int i = 0; i < 256; ++i)
            layout += "[POS]" + QByteArray::number(100 + i % 16 * 900) + "," +
                      QByteArray::number(600 + i / 16 * 650) + "[SIZE]800,550[TEXT]Key " +
                      QByteArray::number(i) + "[REMOTE]tv[COMMAND]k" + QByteArray::number(i) + "\n";
        layout += "[END]\n";
    }
    return layout;
}

/// A client with its panel on the screen, and the server's end of its connection.
class Stage {
public:
    Stage() {
        QFile file(folder.filePath(u"Remote.lyt"_s));
        if (!file.open(QIODevice::WriteOnly) || file.write(FullLayout()) < 0 ||
            !server.listen(QHostAddress::LocalHost))
            qFatal("the stage can't be set");
        file.close();
        program = std::make_unique<Program>(Program::Options{
            {u"127.0.0.1"_s, false}, folder.path(), u"German"_s, file.fileName(), server.serverPort()});
        program->Start();
        if (!QTest::qWaitFor([this] { return server.hasPendingConnections(); }))
            qFatal("the client doesn't connect");
        peer = server.nextPendingConnection();
        if (!QTest::qWaitFor([this] { return !program->MainWindow().Panel().cmdRem.empty(); }))
            qFatal("the panel doesn't load");
    }

    QTemporaryDir folder;
    QTcpServer server;
    QTcpSocket* peer = nullptr;
    std::unique_ptr<Program> program;
};

/// Seconds until `peer` can read `bytes` more, which it then does. It blocks in the system and not in the
/// event loop, so neither side of the comparison pays for the other events of the program.
void Drain(QTcpSocket& peer, qint64 bytes) {
    while (peer.bytesAvailable() < bytes)
        peer.waitForReadyRead(1000);
    peer.read(bytes);
}

void PressToWire(benchmark::State& state) {
    Stage stage;
    QTest::qWait(300);
    stage.peer->readAll();
    auto* button = stage.program->MainWindow().findChild<QAbstractButton*>(u"cmdRem(1)"_s);
    const QPointF center = QRectF(button->rect()).center();
    const QPointF global = button->mapToGlobal(center);
    QMouseEvent press(QEvent::MouseButtonPress, center, global, Qt::LeftButton, Qt::LeftButton, {});
    QMouseEvent release(QEvent::MouseButtonRelease, center, global, Qt::LeftButton, {}, {});

    QTcpSocket bare;
    bare.connectToHost(QHostAddress::LocalHost, stage.server.serverPort());
    if (!QTest::qWaitFor([&] { return stage.server.hasPendingConnections(); }))
        qFatal("the bare socket doesn't connect");
    QTcpSocket* barePeer = stage.server.nextPendingConnection();
    bare.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    const QByteArray record(CommandRequest::Size, 'x');

    CompareInTurns(
        state,
        [&] {
            const double time = TimeOf([&] {
                QCoreApplication::sendEvent(button, &press);
                Drain(*stage.peer, CommandRequest::Size);
            });
            QCoreApplication::sendEvent(button, &release);
            QCoreApplication::processEvents();
            return time;
        },
        [&] {
            const double time = TimeOf([&] {
                bare.write(record);
                bare.flush();
                Drain(*barePeer, record.size());
            });
            QCoreApplication::processEvents();
            return time;
        });
}

/// From the choice of a page to its 256 buttons painted.
void ReplacePage(benchmark::State& state) {
    Stage stage;
    int page = 1;
    std::vector<double> times;
    std::vector<double> paintTimes;
    for (auto _ : state) {
        page = 3 - page;
        auto* entry = stage.program->MainWindow().findChild<QAction*>(u"mnuRemoteItem(%1)"_s.arg(page));
        const double build = TimeOf([&] { entry->trigger(); });
        const double paint = TimeOf([&] { stage.program->MainWindow().grab(); });
        times.push_back(build + paint);
        paintTimes.push_back(paint);
        state.SetIterationTime(build + paint);
        QCoreApplication::processEvents();
        stage.peer->readAll();
    }
    state.counters["median_ms"] = Median(times) * 1e3;
    state.counters["paint_ms"] = Median(paintTimes) * 1e3;
    state.counters["of_16_ms"] = Median(times) / 0.016;
}

} // namespace

BENCHMARK(PressToWire)->UseManualTime()->Iterations(2000)->Unit(benchmark::kMicrosecond);
BENCHMARK(ReplacePage)->UseManualTime()->Iterations(100)->Unit(benchmark::kMillisecond);
