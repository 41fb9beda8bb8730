// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <benchmark/benchmark.h>
#include <string>
#include <vector>

#include "fakes/fake_rich_text_engine.h"
#include "fakes/memory_log.h"
#include "macros/key_events.h"
#include "macros/text_delivery.h"
#include "platform/win32/win_clipboard_access.h"
#include "platform/win32/win_clock.h"
#include "platform/win32/win_input_injector.h"
#include "platform/win32/win_locale.h"
#include "ratio.h"

namespace vbr::bench {
namespace {

constexpr DWORD kToldWaitsMs = 500;  // of one paste

// A window of this program in front, which takes the keys and makes nothing of them.
class KeyTarget {
  public:
    KeyTarget() {
        window_ = CreateWindowW(L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 100, 100,
                                nullptr, nullptr, nullptr, nullptr);
        SetForegroundWindow(window_);
        SetFocus(window_);
        Drain();
    }
    ~KeyTarget() { DestroyWindow(window_); }
    KeyTarget(const KeyTarget&) = delete;
    KeyTarget& operator=(const KeyTarget&) = delete;

    bool IsInFront() const { return window_ && GetForegroundWindow() == window_; }
    HWND Window() const { return window_; }

    // Takes what was typed out of the queue; the number of keys that went down.
    std::size_t Drain() const {
        std::size_t keys = 0;
        MSG message;
        while (PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE)) {
            keys += message.message == WM_KEYDOWN && message.wParam == VK_PACKET;
        }
        return keys;
    }

  private:
    HWND window_;
};

struct Delivery {
    explicit Delivery(HWND owner) : Clipboard(owner) {}

    WinInputInjector Input;
    WinClipboardAccess Clipboard;
    FakeRichTextEngine RichText;
    WinLocale Locale;
    WinClock Clock;
    MemoryLog Log;
    TextDelivery Text{{.Input = Input,
                       .Clipboard = Clipboard,
                       .RichText = RichText,
                       .Locale = Locale,
                       .Clock = Clock,
                       .Log = Log,
                       .Settings = [] { return PasteSettings{}; },
                       .OnCopied = [] {}}};
};

// Typing a text, from the text to the queue, against the bare call with the same events ready.
void Typing(benchmark::State& state) {
    const KeyTarget target;
    Delivery delivery(target.Window());
    const std::u16string text(static_cast<std::size_t>(state.range(0)), u'x');
    std::vector<INPUT> ready(1);
    ready[0].type = INPUT_KEYBOARD;
    ready[0].ki = {VK_CONTROL, 0, KEYEVENTF_KEYUP, 0, 0};
    for (const KeyEvent& event : PrintEvents(text, 0, delivery.Input)) {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki = {event.Vk, event.Scan, event.Flags, event.Time, 0};
        ready.push_back(input);
    }
    std::size_t typed = 0;
    int rounds = 0;
    MeasureRatio(
        state, 1.3,
        [&] {
            delivery.Text.PrintText(text, 0);
            typed += target.Drain();
            ++rounds;
        },
        [&] {
            SendInput(static_cast<UINT>(ready.size()), ready.data(), sizeof(INPUT));
            target.Drain();
        });
    if (!target.IsInFront() || typed != text.size() * static_cast<std::size_t>(rounds)) {
        state.SkipWithError("The keys did not arrive");
    }
}
BENCHMARK(Typing)->Arg(1000)->Iterations(Rounds(11))->UseManualTime();
BENCHMARK(Typing)->Arg(10000)->Iterations(Rounds(5))->UseManualTime();

// A whole paste against the waits that are part of it.
void Pasting(benchmark::State& state) {
    const KeyTarget target;
    Delivery delivery(target.Window());
    const std::u16string text(static_cast<std::size_t>(state.range(0)), u'x');
    bool pasted = true;
    MeasureRatio(
        state, 1.1,
        [&] {
            pasted = delivery.Text.PasteText(text, 0) && pasted;
            target.Drain();
        },
        [] { Sleep(kToldWaitsMs); });
    if (!pasted) {
        state.SkipWithError("Nothing was pasted");
    }
}
BENCHMARK(Pasting)->Arg(1000)->Arg(1000000)->Iterations(Rounds(5))->UseManualTime();

}  // namespace
}  // namespace vbr::bench
