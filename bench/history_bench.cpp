// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>
#include <cstdlib>
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
            CCHQueue& queue = all.emplace_back();
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
            HistoryFolder folder(fixture.Folder.Path(), fixture.Store, fixture.Files, fixture.Log);
            CCHQueue queue;
            folder.Load(queue);
            benchmark::DoNotOptimize(queue.GetCount());
        },
        [&fixture] { ReadAll(fixture.Folder.Path()); });
}
BENCHMARK(LoadHistory)->Iterations(Rounds(21))->UseManualTime()->Unit(benchmark::kMillisecond);

// A history with so many clips on the disk.
class StoredClips {
  public:
    explicit StoredClips(int count) : fixture_(Fixture()) {
        for (int i = 0; i < count; ++i) {
            fixture_->Add(TextItem(Clip(i)));
        }
        fixture_->Save();
    }
    // The nanoseconds that it takes to copy and save some more, one after the other.
    double TimeToSave() {
        return CpuTime([this] {
            for (int i = 0; i < kMore; ++i) {
                fixture_->Add(TextItem(Clip(--next_)));
                fixture_->Save();
            }
        });
    }
    // To create as many files in the same folder.
    double TimeToCreate() {
        return CpuTime([this] {
            for (int i = 0; i < 2 * kMore; ++i) {
                std::ofstream(fixture_->Folder.Path() / std::to_string(++files_)) << "x";
            }
        });
    }

  private:
    static constexpr int kMore = 20;

    // In memory where that is possible: how long a disk takes to create a file depends on where the
    // folder happens to lie on it, up to thirty times.
    static std::unique_ptr<HistoryFixture> Fixture() {
        const char* const before = std::getenv("TMPDIR");
        const std::string kept = before ? before : "";
        if (std::filesystem::is_directory("/dev/shm")) {
            setenv("TMPDIR", "/dev/shm", 1);
        }
        auto fixture = std::make_unique<HistoryFixture>();
        before ? setenv("TMPDIR", kept.c_str(), 1) : unsetenv("TMPDIR");
        return fixture;
    }

    std::unique_ptr<HistoryFixture> fixture_;
    int next_ = 0;
    int files_ = 0;
};

// One more clip costs the same however many are stored, but for what the system takes to create a
// file among many.
void SaveOneMore(benchmark::State& state) {
    StoredClips few(100);
    StoredClips many(10'000);
    MeasureRatioOfTimes(
        state, 1.5, [&many] { return many.TimeToSave(); },
        [&] { return few.TimeToSave() + std::max(0.0, many.TimeToCreate() - few.TimeToCreate()); });
}
BENCHMARK(SaveOneMore)->Iterations(Rounds(21))->UseManualTime()->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace vbr::bench
