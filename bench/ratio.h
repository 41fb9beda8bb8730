// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <vector>

namespace vbr::bench {

// Whether a ratio above its bound fails the run. Otherwise ratios are printed alone, from fewer
// rounds.
inline bool ChecksBounds() {
    return std::getenv("VELLUMBRIDGE_CHECK_BOUNDS") != nullptr;
}

// How many rounds a benchmark takes that needs so many for a steady median.
inline int Rounds(int steady) {
    return ChecksBounds() ? steady : std::max(3, steady / 20);
}

// Nanoseconds that the call takes.
template <typename Call>
double Time(Call&& call) {
    const auto start = std::chrono::steady_clock::now();
    call();
    return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - start)
        .count();
}

// Asks for the times of the work and its floor, in nanoseconds, in interleaved pairs and reports
// the median of their ratios with its bound.
template <typename WorkTime, typename FloorTime>
void MeasureRatioOfTimes(benchmark::State& state, double bound, WorkTime&& timeWork,
                         FloorTime&& timeFloor) {
    std::vector<double> ratios;
    for (auto _ : state) {
        const double floorTime = timeFloor();
        const double workTime = timeWork();
        ratios.push_back(workTime / floorTime);
        state.SetIterationTime(workTime / 1e9);
    }
    const auto middle = ratios.begin() + static_cast<std::ptrdiff_t>(ratios.size() / 2);
    std::nth_element(ratios.begin(), middle, ratios.end());
    state.counters["ratio"] = *middle;
    state.counters["bound"] = bound;
}

// The same for work and floor that are timed from start to end.
template <typename Work, typename Floor>
void MeasureRatio(benchmark::State& state, double bound, Work&& work, Floor&& floor) {
    MeasureRatioOfTimes(
        state, bound, [&work] { return Time(work); }, [&floor] { return Time(floor); });
}

#ifndef _WIN32
// Nanoseconds of processor time that the call takes, whatever else the machine is doing.
template <typename Call>
double CpuTime(Call&& call) {
    const auto now = [] {
        std::timespec time{};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) * 1e9 + static_cast<double>(time.tv_nsec);
    };
    const double start = now();
    call();
    return now() - start;
}

// The same for work and floor that wait for nothing, in processor time.
template <typename Work, typename Floor>
void MeasureCpuRatio(benchmark::State& state, double bound, Work&& work, Floor&& floor) {
    MeasureRatioOfTimes(
        state, bound, [&work] { return CpuTime(work); }, [&floor] { return CpuTime(floor); });
}
#endif

}  // namespace vbr::bench
