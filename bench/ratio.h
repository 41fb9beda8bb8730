// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <string>
#include <vector>

namespace vbr::bench {

// Whether every ratio measured so far kept its bound.
bool& AllWithinBounds();

// Nanoseconds that the call takes.
template <typename Call>
double Time(Call&& call) {
    const auto start = std::chrono::steady_clock::now();
    call();
    return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - start)
        .count();
}

inline double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// How often a ratio is measured before it counts as too high: what else runs on the machine may
// slow one round, but slow code is slow in all of them.
inline constexpr int kRounds = 3;

// Asks for the times of the work and its floor, in nanoseconds, in interleaved pairs and reports
// the median of their ratios. A median above the bound in every round fails the run.
template <typename WorkTime, typename FloorTime>
void MeasureRatioOfTimes(benchmark::State& state, double bound, WorkTime&& timeWork,
                         FloorTime&& timeFloor) {
    std::vector<double> ratios;
    const auto measurePair = [&](double& ratio) {
        const double floorTime = timeFloor();
        const double workTime = timeWork();
        ratio = workTime / floorTime;
        return workTime;
    };
    for (auto _ : state) {
        state.SetIterationTime(measurePair(ratios.emplace_back()) / 1e9);
    }
    double median = Median(ratios);
    for (int round = 1; median > bound && round < kRounds; ++round) {
        for (double& ratio : ratios) {
            measurePair(ratio);
        }
        median = std::min(median, Median(ratios));
        state.SetLabel("measured again");
    }
    state.counters["ratio"] = median;
    state.counters["bound"] = bound;
    if (median > bound) {
        AllWithinBounds() = false;
        state.SetLabel("TOO SLOW");
    }
}

// The same for work and floor that are timed from start to end.
template <typename Work, typename Floor>
void MeasureRatio(benchmark::State& state, double bound, Work&& work, Floor&& floor) {
    MeasureRatioOfTimes(
        state, bound, [&work] { return Time(work); }, [&floor] { return Time(floor); });
}

}  // namespace vbr::bench
