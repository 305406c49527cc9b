#include "hostile/flood_rig.h"

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

constexpr double MostWait = 100; ///< milliseconds that the window may keep its user waiting
constexpr int LogBytes = 100'000'000;

/// Runs the floods one by one and gives the longest wait for a turn of the event loop, beside the one of an
/// idle program in the same run, and the growth of the heap; the label names the flood that made them wait
/// longest.
void Pour(benchmark::State& state, const FloodedDialog& dialog, const std::vector<Flood>& floods) {
    for (auto _ : state) {
        FloodRig rig;
        rig.BringUp();
        if (!rig.Open(dialog))
            return state.SkipWithError("the dialog doesn't open");
        rig.Sent();
        qint64 idle = 0;
        {
            const FloodWatch watch;
            rig.Run({"idle", Raw::Ack(), 1});
            QTest::qWait(300);
            idle = watch.LongestWait();
        }
        qint64 longest = 0;
        double busiest = 0;
        qint64 growth = 0;
        for (const Flood& flood : floods) {
            FloodWatch watch;
            if (!rig.Run(flood))
                return state.SkipWithError("the flood isn't read");
            watch.Look();
            if (watch.LongestWait() >= longest)
                state.SetLabel(flood.name);
            longest = std::max(longest, watch.LongestWait());
            busiest = std::max(busiest, watch.BusiestTurn());
            growth = std::max(growth, watch.Growth());
            rig.AnswerAll();
            rig.Sent();
        }
        state.counters["wait_ms"] = double(longest);
        state.counters["idle_ms"] = double(idle);
        state.counters["work_ms"] = busiest;
        state.counters["of_100_ms"] = double(longest) / MostWait;
        state.counters["heap_MiB"] = double(growth) / (1024 * 1024);
    }
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    for (const FloodedDialog& dialog : FloodedDialogs)
        benchmark::RegisterBenchmark(dialog.form, Pour, dialog, Floods())
            ->Iterations(1)
            ->Unit(benchmark::kMillisecond);
    const QByteArray log = Raw::Log((QByteArray(79, 'x') + '\n').repeated(400));
    const std::vector<Flood> logs{{"log", log, LogBytes / int(log.size())}};
    benchmark::RegisterBenchmark("log of 100 MB", Pour, FloodedDialogs[0], logs)
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond);
    benchmark::RunSpecifiedBenchmarks();
}
