// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <algorithm>
#include <benchmark/benchmark.h>

#include "base/text.h"
#include "desktop/driver/program.h"
#include "platform/win32/wide.h"
#include "ratio.h"
#include "windows/bare_program.h"
#include "windows/process_figures.h"

namespace vbr::bench {
namespace {

constexpr double kThreadsAllowed = 6;
constexpr double kTimesTheBareWindow = 3;
// By then the program has started what it starts late, and ended what it needs at its start only.
constexpr DWORD kSettlingMs = 6000;
constexpr double kMegabyte = 1024 * 1024;

// What the program holds while nobody uses it, beside bare programs of the same moment.
struct IdleFigures {
    const char* Failure = nullptr;
    int Threads = 0;
    double Memory = 0;
    double Bare = 0;
    double BareWithLibraries = 0;
    std::size_t Libraries = 0;
};

bool HasAll(const std::vector<std::wstring>& libraries, DWORD process) {
    const std::vector<std::wstring> loaded = SystemLibraries(process);
    return std::all_of(libraries.begin(), libraries.end(), [&loaded](const std::wstring& library) {
        return std::any_of(loaded.begin(), loaded.end(), [&library](const std::wstring& other) {
            return EqualsNoCase(FromWide(other.c_str()), FromWide(library.c_str()));
        });
    });
}

IdleFigures Measure() {
    desktop::Program program;
    for (int i = 0; i < 20; ++i) {
        program.AddPhrase("Phrase " + std::to_string(i), i, "Dear Sir or Madam");
    }
    // The history is on and the log is off by default.
    program.WriteSettings("ShowHistoryPaneOnStart=0\nWelcome_Already_Started_V2_60=1");
    if (!program.StartResident()) {
        return {"the program does not start"};
    }
    Sleep(kSettlingMs);

    const DWORD id = program.Resident().Id();
    const std::vector<std::wstring> libraries = SystemLibraries(id);
    std::wstring arguments;
    for (const std::wstring& library : libraries) {
        arguments += L" \"" + library + L"\"";
    }
    const BareProgram bare(L"");
    const BareProgram withLibraries(arguments);
    if (libraries.empty() || !bare.WaitUntilReady() || !withLibraries.WaitUntilReady() ||
        !HasAll(libraries, withLibraries.Id())) {
        return {"the bare programs do not start"};
    }
    const auto memory = PrivateMemory(id, (program.Folder() / L"Vellumbridge.exe").wstring());
    const auto bareMemory = PrivateMemory(bare.Id(), bare.Mark());
    const auto librariesMemory = PrivateMemory(withLibraries.Id(), withLibraries.Mark());
    if (!memory || !bareMemory || !librariesMemory) {
        return {"the memory cannot be read"};
    }
    return {nullptr, CountThreads(id), *memory, *bareMemory, *librariesMemory, libraries.size()};
}

const IdleFigures& Figures() {
    static const IdleFigures figures = Measure();
    return figures;
}

// Reports the figure as a part of what is allowed.
void Report(benchmark::State& state, double figure, double allowed) {
    for (auto _ : state) {
        state.SetIterationTime(kSettlingMs / 1e3);
    }
    if (Figures().Failure) {
        state.SkipWithError(Figures().Failure);
        return;
    }
    state.counters["ratio"] = figure / allowed;
    state.counters["bound"] = 1;
}

void IdleThreads(benchmark::State& state) {
    const IdleFigures& figures = Figures();
    Report(state, figures.Threads, kThreadsAllowed);
    state.counters["threads"] = figures.Threads;
    state.counters["allowed"] = kThreadsAllowed;
}
BENCHMARK(IdleThreads)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

// The libraries' own memory is not the program's doing; it may have three bare windows beside.
void IdleMemory(benchmark::State& state) {
    const IdleFigures& figures = Figures();
    const double allowed =
        kTimesTheBareWindow * figures.Bare + figures.BareWithLibraries - figures.Bare;
    Report(state, figures.Memory, allowed);
    state.counters["MB"] = figures.Memory / kMegabyte;
    state.counters["allowed MB"] = allowed / kMegabyte;
    state.counters["bare MB"] = figures.Bare / kMegabyte;
    state.counters["bare with its libraries MB"] = figures.BareWithLibraries / kMegabyte;
    state.counters["libraries"] = static_cast<double>(figures.Libraries);
}
BENCHMARK(IdleMemory)->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vbr::bench
