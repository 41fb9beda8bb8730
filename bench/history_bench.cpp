// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>
#include <deque>
#include <fstream>
#include <iterator>
#include <malloc.h>

#include "fakes/history_fixture.h"
#include "ratio.h"

namespace vbr::bench {
namespace {

std::u16string Clip(int number) {
    std::u16string text = Concat(number, u" ");
    text.resize(100, u'x');
    return text;
}

// The nanoseconds that it takes to add different clips to so many queues, which all live meanwhile.
double TimeToAdd(int queues, int clipsInEach) {
    HistoryFixture fixture;
    std::deque<CCHQueue> all;
    // Whoever first asks for a large block pays for joining what others freed before.
    malloc_trim(0);
    return CpuTime([&] {
        for (int i = 0; i < queues; ++i) {
            CCHQueue& queue = all.emplace_back(fixture.Folder);
            for (int clip = 0; clip < clipsInEach; ++clip) {
                queue.Add(TextItem(Clip(clip)), kNoItemLimit);
            }
        }
    });
}

// Ten times the clips cost about ten times the time. A small queue's time is taken from ten that
// live at once: so both sides fill as much memory, and what differs is the queue's own work.
void AddGrowth(benchmark::State& state) {
    MeasureRatioOfTimes(
        state, 12, [] { return TimeToAdd(1, 10'000); }, [] { return TimeToAdd(10, 1'000) / 10; });
}
BENCHMARK(AddGrowth)->Iterations(Rounds(21))->UseManualTime()->Unit(benchmark::kMillisecond);

// What any load must do: list the folder and read its files.
void ReadAll(const std::filesystem::path& folder) {
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        std::ifstream file(entry.path(), std::ios::binary);
        benchmark::DoNotOptimize(
            std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()));
    }
}

// Loading the history costs little more than reading its files.
void LoadHistory(benchmark::State& state) {
    HistoryFixture fixture;
    for (int i = 0; i < 10'000; ++i) {
        fixture.Add(TextItem(Clip(i)));
    }
    fixture.Save();
    MeasureCpuRatio(
        state, 2,
        [&fixture] {
            CCHQueue queue(fixture.Folder);
            fixture.Folder.Load(queue);
            benchmark::DoNotOptimize(queue.GetCount());
        },
        [&fixture] { ReadAll(fixture.Folder.Path()); });
}
BENCHMARK(LoadHistory)->Iterations(Rounds(21))->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vbr::bench
