#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

/// Seconds that `work` takes.
template <class Work> double TimeOf(Work&& work) {
    const auto begun = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count();
}

inline double Median(std::vector<double> values) {
    std::nth_element(values.begin(), values.begin() + values.size() / 2, values.end());
    return values[values.size() / 2];
}

/// Times `ours` and `yardstick` in turns, so that both meet the same machine, and gives the medians in
/// microseconds and their ratio as counters.
template <class Ours, class Yardstick>
void CompareInTurns(benchmark::State& state, Ours&& ours, Yardstick&& yardstick) {
    std::vector<double> oursTimes;
    std::vector<double> yardstickTimes;
    for (auto _ : state) {
        oursTimes.push_back(ours());
        yardstickTimes.push_back(yardstick());
        state.SetIterationTime(oursTimes.back());
    }
    const double a = Median(oursTimes);
    const double b = Median(yardstickTimes);
    state.counters["ours_us"] = a * 1e6;
    state.counters["yardstick_us"] = b * 1e6;
    state.counters["ratio"] = a / b;
}
