// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <benchmark/benchmark.h>
#include <functional>
#include <string>
#include <vector>

#include "desktop/driver/keyboard.h"
#include "desktop/driver/keys_target.h"
#include "desktop/driver/menus.h"
#include "desktop/driver/notepad.h"
#include "desktop/driver/program.h"
#include "fakes/fake_rich_text_engine.h"
#include "fakes/memory_log.h"
#include "macros/key_events.h"
#include "macros/text_delivery.h"
#include "platform/win32/win_locale.h"
#include "ratio.h"
#include "windows/bare_program.h"
#include "windows/real_reader.h"

namespace vbr::bench {
namespace {

using desktop::KeysTarget;
using desktop::PressKeys;

constexpr double kTimesBareMenu = 1.3;
constexpr double kMenuAllowanceNs = 20e6;
constexpr double kSelectionToMenuNs = 150e6;
constexpr double kChoiceToPasteNs = 100e6;

// Asks without a pause, so that the asking is not what is measured.
template <typename Condition>
bool SpinUntil(Condition&& holds) {
    const ULONGLONG giveUp = GetTickCount64() + desktop::kPatienceMs;
    while (!holds()) {
        if (GetTickCount64() > giveUp) {
            return false;
        }
        Sleep(0);
    }
    return true;
}

// The program with a phrase, at work with a target in front.
class MainJob {
  public:
    explicit MainJob(const std::string& settings = "") {
        for (int i = 0; i < 5; ++i) {
            program_.AddPhrase("Phrase " + std::to_string(i), i, "[%SELECTED_TEXT%]");
        }
        program_.WriteSettings("ShowHistoryPaneOnStart=0\nShowTrayBallonOnHotkey=0\n" + settings);
        Expect(program_.StartResident());
    }

    bool Failed() const { return failed_; }
    void Expect(bool condition) { failed_ = failed_ || !condition; }

    // From the press until the menu is there.
    double OpenMenu(const std::vector<WORD>& hotkey) {
        const double time = Time([&] {
            PressKeys(hotkey);
            Expect(SpinUntil(desktop::IsMenuOpen));
        });
        return time;
    }
    void CloseMenu() {
        PressKeys({VK_ESCAPE});
        Expect(desktop::WaitForNoMenu());
    }

  private:
    desktop::Program program_;
    bool failed_ = false;
};

const std::vector<WORD> kProgramKey = {VK_CONTROL, VK_MENU, VK_RETURN};
const std::vector<WORD> kBareKey = {VK_CONTROL, VK_MENU, VK_F12};

void Report(benchmark::State& state, const MainJob& job) {
    if (job.Failed()) {
        state.SkipWithError("the menu or the text did not come");
    }
}

// The hot key with nothing selected, against a bare hot key with a bare menu.
void HotkeyToMenuWithoutSelection(benchmark::State& state) {
    MainJob job;
    const BareProgram bare(L"--menu");
    job.Expect(bare.WaitUntilReady());
    const desktop::Notepad notepad;
    const auto timed = [&](const std::vector<WORD>& keys, const std::function<void()>& close) {
        job.Expect(desktop::WaitUntil([&] { return notepad.BringToFront(); }));
        const double time = job.OpenMenu(keys);
        close();
        return time;
    };
    const auto ours = [&] { return timed(kProgramKey, [&] { job.CloseMenu(); }); };
    // It need not have come to the front, where Escape would reach it.
    const auto bareMenu = [&] {
        return timed(kBareKey, [&] {
            SendMessageW(bare.Window(), WM_CANCELMODE, 0, 0);
            job.Expect(desktop::WaitForNoMenu());
        });
    };
    ours();
    MeasureRatioOfTimes(state, 1, ours,
                        [&] { return kTimesBareMenu * bareMenu() + kMenuAllowanceNs; });
    Report(state, job);
}
BENCHMARK(HotkeyToMenuWithoutSelection)
    ->Iterations(Rounds(21))
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

// From a target that obeys its keys alone, with a selection.
void HotkeyToMenuWithSelection(benchmark::State& state) {
    MainJob job;
    KeysTarget page({.Selected = u"selected"});
    MeasureRatioOfTimes(
        state, 1,
        [&] {
            job.Expect(page.BringToFront());
            const double time = job.OpenMenu(kProgramKey);
            job.CloseMenu();
            return time;
        },
        [] { return kSelectionToMenuNs; });
    Report(state, job);
}
BENCHMARK(HotkeyToMenuWithSelection)
    ->Iterations(Rounds(21))
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

// From the choice in the menu until the target has the text.
void ChoiceToPastedText(benchmark::State& state) {
    MainJob job("TextPasteMethod_v150=1");
    KeysTarget page({.Selected = u"selected"});
    std::size_t expected = 0;
    MeasureRatioOfTimes(
        state, 1,
        [&] {
            job.Expect(page.BringToFront());
            job.OpenMenu(kProgramKey);
            PressKeys({VK_DOWN});
            expected += 10;
            return Time([&] {
                PressKeys({VK_RETURN});
                job.Expect(SpinUntil([&] { return page.Text().size() == expected; }));
            });
        },
        [&] {
            job.Expect(desktop::WaitUntilReady());
            return kChoiceToPasteNs;
        });
    Report(state, job);
}
BENCHMARK(ChoiceToPastedText)
    ->Iterations(Rounds(21))
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

// Typing a text until the target has all of it, against the bare call with the same events.
void Typing(benchmark::State& state) {
    KeysTarget page;
    MemoryLog log;
    RealReader desktop(log);
    FakeRichTextEngine richText;
    WinLocale locale;
    TextDelivery delivery({.Input = desktop.Input,
                           .Keys = desktop.Keys,
                           .Targets = desktop.Targets,
                           .Clipboard = desktop.Clipboard,
                           .OwnCopy = desktop.OwnCopy,
                           .Snapshot = desktop.Snapshot,
                           .RichText = richText,
                           .Locale = locale,
                           .Clock = desktop.Clock,
                           .Log = log,
                           .Settings = [] { return PasteSettings{}; }});
    const std::u16string text(static_cast<std::size_t>(state.range(0)), u'x');
    const std::vector<KeyEvent> events = PrintEvents(text, desktop.Input);
    bool arrived = page.BringToFront();
    std::size_t expected = 0;
    const auto untilRead = [&](const std::function<void()>& send) {
        send();
        expected += text.size();
        // One that asks all the time keeps a processor awake, and the bare call alone would gain.
        const ULONGLONG giveUp = GetTickCount64() + desktop::kPatienceMs;
        while (page.Length() < expected && GetTickCount64() < giveUp) {
            Sleep(1);
        }
        arrived = page.Length() >= expected && arrived;
    };
    MeasureRatio(
        state, 1.5,
        [&] {
            untilRead(
                [&] { delivery.PrintText(reinterpret_cast<WindowHandle>(page.Window()), text); });
        },
        [&] { untilRead([&] { desktop.Input.Send(events); }); });
    if (!arrived || page.Length() != expected) {
        state.SkipWithError("The keys did not arrive");
    }
}
BENCHMARK(Typing)->Arg(1000)->Iterations(Rounds(11))->UseManualTime();

}  // namespace
}  // namespace vbr::bench
