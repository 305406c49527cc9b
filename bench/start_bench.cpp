#include "ratio.h"

#include <QCoreApplication>
#include <QProcess>

namespace {

struct Start {
    double seconds = 0;
    double peakKiB = 0;
};

/// From the start of the process to its window.
Start StartOnce(const QString& name) {
    Start start;
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    start.seconds = TimeOf([&] {
        process.start(QCoreApplication::applicationDirPath() + u'/' + name, QStringList());
        process.waitForReadyRead(20000);
    });
    start.peakKiB = process.readLine().trimmed().toDouble();
    process.waitForFinished();
    return start;
}

void StartToWindow(benchmark::State& state) {
    std::vector<double> memory;
    std::vector<double> emptyMemory;
    CompareInTurns(
        state,
        [&] {
            const Start start = StartOnce(QStringLiteral("start_calvoris"));
            memory.push_back(start.peakKiB);
            return start.seconds;
        },
        [&] {
            const Start start = StartOnce(QStringLiteral("start_empty"));
            emptyMemory.push_back(start.peakKiB);
            return start.seconds;
        });
    state.counters["peak_MiB"] = Median(memory) / 1024;
    state.counters["memory_ratio"] = Median(memory) / Median(emptyMemory);
}

} // namespace

BENCHMARK(StartToWindow)->UseManualTime()->Iterations(40)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
