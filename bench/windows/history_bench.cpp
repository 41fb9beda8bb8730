// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <benchmark/benchmark.h>
#include <cstring>
#include <string>

#include "fakes/memory_log.h"
#include "history/clipboard_capture.h"
#include "history/history_queue.h"
#include "platform/win32/win_ansi_text.h"
#include "platform/win32/win_bitmaps.h"
#include "platform/win32/win_clipboard_access.h"
#include "platform/win32/win_clock.h"
#include "platform/win32/win_program_windows.h"
#include "ratio.h"

namespace vbr::bench {
namespace {

// The clipboard with a text of that many bytes in it, and the parts that read it.
class CaptureFixture {
  public:
    explicit CaptureFixture(std::size_t bytes) : text_(bytes / sizeof(wchar_t), L'x') {
        HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text_.size() + 1) * sizeof(wchar_t));
        std::memcpy(GlobalLock(memory), text_.c_str(), (text_.size() + 1) * sizeof(wchar_t));
        GlobalUnlock(memory);
        OpenClipboard(window_);
        EmptyClipboard();
        SetClipboardData(CF_UNICODETEXT, memory);
        CloseClipboard();
    }
    ~CaptureFixture() { DestroyWindow(window_); }
    CaptureFixture(const CaptureFixture&) = delete;
    CaptureFixture& operator=(const CaptureFixture&) = delete;

    // What the main thread does about a clipboard change.
    void Capture() { queue_.Add(capture_.Capture(0, kOwnerAnswerMs).Item, 1); }

    // What a bare program does that takes the text.
    void CopyOut() {
        OpenClipboard(window_);
        HGLOBAL memory = GetClipboardData(CF_UNICODETEXT);
        const auto* bytes = static_cast<const char*>(GlobalLock(memory));
        std::vector<char> copy(bytes, bytes + GlobalSize(memory));
        GlobalUnlock(memory);
        CloseClipboard();
        benchmark::DoNotOptimize(copy.data());
    }

  private:
    HWND window_ =
        CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    std::wstring text_;
    MemoryLog log_;
    CCHQueue queue_;
    WinClipboardAccess clipboard_{window_};
    WinProgramWindows windows_;
    WinClock clock_;
    MyCopyGuard myCopy_{clipboard_, GetCurrentProcessId(), log_};
    KeptFormats kept_{true, true, true, true, true};
    WinAnsiText ansi_;
    WinBitmaps bitmaps_;
    ClipboardCapture capture_{{.Access = clipboard_,
                               .Windows = windows_,
                               .Clock = clock_,
                               .MyCopy = myCopy_,
                               .Kept = kept_,
                               .Ansi = ansi_,
                               .Bitmaps = bitmaps_,
                               .Log = log_}};
};

void MeasureCapture(benchmark::State& state, std::size_t bytes) {
    CaptureFixture fixture(bytes);
    MeasureRatio(
        state, 3, [&fixture] { fixture.Capture(); }, [&fixture] { fixture.CopyOut(); });
}

// The main thread is held up little longer than a plain copy takes.
void CaptureText(benchmark::State& state) {
    MeasureCapture(state, 1 << 20);
}
BENCHMARK(CaptureText)->Iterations(Rounds(51))->UseManualTime()->Unit(benchmark::kMicrosecond);

void CaptureHugeText(benchmark::State& state) {
    MeasureCapture(state, 50 << 20);
}
BENCHMARK(CaptureHugeText)->Iterations(Rounds(7))->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vbr::bench
