// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <string>
#include <vector>

#include "desktop/driver/program.h"
#include "platform/object_names.h"
#include "platform/win32/wide.h"
#include "ratio.h"
#include "resources/resource_ids.h"
#include "windows/bare_program.h"

namespace vbr::bench {
namespace {

constexpr int kPhrases = 1000;
constexpr int kFolders = 20;
constexpr double kTimesReading = 1.3;
constexpr double kAllowanceNs = 100e6;

double Median(std::vector<double> times) {
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

// Whether another program has the default hot key.
bool IsHotkeyTaken() {
    if (RegisterHotKey(nullptr, 1, MOD_CONTROL | MOD_ALT, VK_RETURN)) {
        UnregisterHotKey(nullptr, 1);
        return false;
    }
    return GetLastError() == ERROR_HOTKEY_ALREADY_REGISTERED;
}

// Asking for the key itself could take it from the program; but the program tells others its hot
// key as soon as it has it.
bool TellsItsHotkey() {
    return UniqueHandle(OpenFileMappingW(FILE_MAP_READ, FALSE, Wide(kAreaSettings.data()))) !=
           nullptr;
}

// The program with its phrases, and what a start of it has to do.
class StartFixture {
  public:
    StartFixture() {
        for (int i = 0; i < kPhrases; ++i) {
            const std::string folder = "Group " + std::to_string(i % kFolders);
            std::filesystem::create_directories(program_.Phrases() / folder);
            program_.AddPhrase(folder + "/Phrase " + std::to_string(i), i,
                               "Dear Sir or Madam, thank you for %DATE%.");
        }
        program_.WriteSettings("ShowHistoryPaneOnStart=0\nWelcome_Already_Started_V2_60=1");
    }

    bool Failed() const { return failed_; }
    const std::vector<double>& ProgramTimes() const { return programTimes_; }
    const std::vector<double>& BareTimes() const { return bareTimes_; }
    const std::vector<double>& ReadTimes() const { return readTimes_; }

    double StartProgram() {
        desktop::Process process;
        programTimes_.push_back(Time([&] {
            process = program_.Start();
            Expect(desktop::WaitUntil(
                [] { return TellsItsHotkey() && Answers(desktop::TrayWindow()); }));
        }));
        Expect(IsHotkeyTaken());
        PostMessageW(desktop::TrayWindow(), WM_COMMAND, kCmdExit, 0);
        Expect(process.WaitForExit(desktop::kPatienceMs) == 0U);
        return programTimes_.back();
    }

    // The time that the program may take.
    double TimeAllowed() {
        // By a program that has just started, as ours: one that has run for a while does it faster.
        const DWORD microseconds =
            BareProgram::Run(L"--read \"" + program_.Phrases().wstring() + L"\"");
        Expect(microseconds > 0);
        readTimes_.push_back(microseconds * 1e3);
        std::unique_ptr<BareProgram> bare;
        bareTimes_.push_back(Time([&] {
            bare = std::make_unique<BareProgram>(L"--hotkey");
            Expect(bare->WaitUntilReady());
        }));
        Expect(IsHotkeyTaken());
        return bareTimes_.back() + kTimesReading * readTimes_.back() + kAllowanceNs;
    }

  private:
    void Expect(bool condition) { failed_ = failed_ || !condition; }

    desktop::Program program_;
    std::vector<double> programTimes_;
    std::vector<double> bareTimes_;
    std::vector<double> readTimes_;
    bool failed_ = false;
};

// From the start of the process until its hot key works.
void StartUntilHotkey(benchmark::State& state) {
    StartFixture fixture;
    // What the system reads once is read by now.
    fixture.TimeAllowed();
    fixture.StartProgram();
    MeasureRatioOfTimes(
        state, 1, [&fixture] { return fixture.StartProgram(); },
        [&fixture] { return fixture.TimeAllowed(); });
    if (fixture.Failed()) {
        state.SkipWithError("a start went wrong");
        return;
    }
    state.counters["median ms"] = Median(fixture.ProgramTimes()) / 1e6;
    state.counters["bare start ms"] = Median(fixture.BareTimes()) / 1e6;
    state.counters["reading ms"] = Median(fixture.ReadTimes()) / 1e6;
}
BENCHMARK(StartUntilHotkey)->Iterations(Rounds(15))->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vbr::bench
