// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <benchmark/benchmark.h>
#include <cstring>
#include <string>
#include <vector>

#include "fakes/memory_log.h"
#include "platform/clipboard_snapshot.h"
#include "platform/win32/win_clipboard_access.h"
#include "ratio.h"

namespace vbr::bench {
namespace {

HGLOBAL MemoryOf(const void* bytes, std::size_t size) {
    HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
    std::memcpy(GlobalLock(memory), bytes, size);
    GlobalUnlock(memory);
    return memory;
}

// What a bare program does that copies all formats.
void CopyAll() {
    std::vector<std::vector<char>> blocks;
    OpenClipboard(nullptr);
    for (UINT format = 0; (format = EnumClipboardFormats(format)) != 0;) {
        HGLOBAL memory = GetClipboardData(format);
        if (const auto* bytes = static_cast<const char*>(GlobalLock(memory))) {
            blocks.emplace_back(bytes, bytes + GlobalSize(memory));
            GlobalUnlock(memory);
        }
    }
    CloseClipboard();
    benchmark::DoNotOptimize(blocks);
}

void MeasureTake(benchmark::State& state, double bound, std::size_t bytes) {
    HWND window =
        CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    const std::string content(bytes, 'x');
    OpenClipboard(window);
    EmptyClipboard();
    for (const wchar_t* name : {L"Rich Text Format", L"HTML Format", L"A private format"}) {
        SetClipboardData(RegisterClipboardFormatW(name), MemoryOf(content.data(), content.size()));
    }
    CloseClipboard();

    WinClipboardAccess clipboard(window);
    MemoryLog log;
    {
        CClipboardSnapshot snapshot(clipboard, log);
        const auto takeAndDrop = [&snapshot] {
            snapshot.Take();
            snapshot.ClearRestore();
        };
        MeasureRatio(state, bound, takeAndDrop, CopyAll);
    }
    DestroyWindow(window);
}

// Before a menu appears, taking a usual content costs little beside reading it.
void TakeSnapshot(benchmark::State& state) {
    MeasureTake(state, 2.5, 2'000);
}
BENCHMARK(TakeSnapshot)->Iterations(Rounds(101))->UseManualTime()->Unit(benchmark::kMicrosecond);

// A huge content is copied once.
void TakeHugeSnapshot(benchmark::State& state) {
    MeasureTake(state, 1.4, 64 << 20);
}
BENCHMARK(TakeHugeSnapshot)->Iterations(Rounds(5))->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vbr::bench
