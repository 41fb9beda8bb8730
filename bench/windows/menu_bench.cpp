// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <benchmark/benchmark.h>
#include <bit>
#include <chrono>
#include <optional>
#include <string>

#include "base/text.h"
#include "fakes/guard_fixture.h"
#include "fakes/macro_fixture.h"
#include "fakes/menu_history_fixture.h"
#include "fakes/native_profile_store.h"
#include "fakes/phrase_tree.h"
#include "menu/phrase_menu_handler.h"
#include "menu/win32/popup_menu.h"
#include "platform/win32/gdi_handle.h"
#include "platform/win32/menu_handle.h"
#include "platform/win32/wide.h"
#include "platform/win32/win_clock.h"
#include "platform/win32/win_menu_font.h"
#include "platform/win32/window_base.h"
#include "ratio.h"

namespace vbr::bench {
namespace {

using Moment = std::chrono::steady_clock::time_point;

Moment& FirstItemDrawn() {
    static Moment moment;
    return moment;
}

// A menu is closed as soon as its first item is to be drawn.
LRESULT CALLBACK EndAtFirstItem(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HC_ACTION && FirstItemDrawn() == Moment() &&
        reinterpret_cast<const CWPSTRUCT*>(lParam)->message == WM_DRAWITEM) {
        FirstItemDrawn() = std::chrono::steady_clock::now();
        EndMenu();
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

// Nanoseconds from now until the first item of the menu is drawn.
template <typename Show>
double TimeToFirstItem(Show&& show) {
    FirstItemDrawn() = Moment();
    const Moment start = std::chrono::steady_clock::now();
    show();
    return std::chrono::duration<double, std::nano>(FirstItemDrawn() - start).count();
}

class FirstItemHook {
  public:
    FirstItemHook()
        : hook_(SetWindowsHookExW(WH_CALLWNDPROC, EndAtFirstItem, nullptr, GetCurrentThreadId())) {}
    ~FirstItemHook() { UnhookWindowsHookEx(hook_); }
    FirstItemHook(const FirstItemHook&) = delete;
    FirstItemHook& operator=(const FirstItemHook&) = delete;

  private:
    HHOOK hook_;
};

// The least that shows a menu of owner-drawn items: labels that stand ready, one font, no tips.
class BareMenu : public WindowBase {
  public:
    explicit BareMenu(std::size_t count) : count_(count) {
        for (std::size_t i = 0; i < count; ++i) {
            labels_.push_back(Concat(u"A phrase with the number ", i));
        }
        const auto font = std::bit_cast<LOGFONTW>(SystemMenuFont());
        font_.reset(CreateFontIndirectW(&font));
        SelectObject(dc_.get(), font_.get());
    }

    // With an owner of its own for each menu and the pointer at its corner, as the program does it.
    void Show() {
        WindowCreation creation;
        creation.ClassName = L"vbr-bench-bare-menu";
        creation.Style = WS_CHILD;
        creation.Parent = HWND_MESSAGE;
        Create(creation);
        SetCursorPos(100, 100);
        const UniqueMenu menu(CreatePopupMenu());
        for (std::size_t i = 0; i < count_; ++i) {
            AppendMenuW(menu.get(), MF_OWNERDRAW, i + 1, reinterpret_cast<LPCWSTR>(&labels_[i]));
        }
        TrackPopupMenuEx(menu.get(), TPM_RETURNCMD, 100, 100, Handle(), nullptr);
        Destroy();
    }

  protected:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM, LPARAM lParam) override {
        if (message == WM_MEASUREITEM) {
            auto& item = *reinterpret_cast<MEASUREITEMSTRUCT*>(lParam);
            const auto& label = *reinterpret_cast<const std::u16string*>(item.itemData);
            SIZE size{};
            GetTextExtentPoint32W(dc_.get(), Wide(label), static_cast<int>(label.size()), &size);
            item.itemWidth = static_cast<UINT>(size.cx);
            item.itemHeight = 24;
            return 1;
        }
        if (message == WM_DRAWITEM) {
            const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
            const auto& label = *reinterpret_cast<const std::u16string*>(item.itemData);
            RECT rect = item.rcItem;
            FillRect(item.hDC, &rect, GetSysColorBrush(COLOR_MENU));
            SelectObject(item.hDC, font_.get());
            DrawTextW(item.hDC, Wide(label), static_cast<int>(label.size()), &rect,
                      DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
            return 1;
        }
        return std::nullopt;
    }

  private:
    std::size_t count_;
    std::vector<std::u16string> labels_;
    UniqueGdi<HFONT> font_;
    UniqueDc dc_{CreateCompatibleDC(nullptr)};
};

// The program's menu of that many phrases, over the real screen.
class PhraseMenuFixture {
  public:
    PhraseMenuFixture(HWND window, std::size_t count)
        : presenter_({.Foreground = window,
                      .Settings = settings_,
                      .Texts = macros_.Texts,
                      .Clock = clock_,
                      .Guard = guard_.Sections,
                      .Log = guard_.Log,
                      .OnRightCommand = [](RightMenuCode, const MenuSubject&) { return false; },
                      .IsEnding = [] { return false; },
                      .Editor = u""}),
          handler_({.Tree = phrases_.Tree,
                    .Items = macros_.Items,
                    .History = clips_.History,
                    .Settings = settings_,
                    .Texts = macros_.Texts,
                    .Presenter = presenter_,
                    .Guard = guard_.Sections,
                    .Log = guard_.Log,
                    .StateOf = [](WindowHandle asked) {
                        return WindowState{asked, false, {}};
                    }}) {
        settings_.FontForMenu = SystemMenuFont();
        settings_.ExtMenuCommand = {};
        for (std::size_t i = 0; i < count; ++i) {
            VBRCommand record;
            record.Text = Concat(u"A phrase with the number ", i);
            record.Cmd = u"Dear Sir or Madam,\r\n\r\nthank you for your message.\r\n";
            phrases_.Folder.Write(std::to_string(i) + ".vellumbridge", CommandToXml(record));
        }
        phrases_.Tree.LoadTree(phrases_.Folder.Path());
    }

    void Show() {
        WPQuery query;
        query.PointX = query.PointY = 100;
        WPAnswer answer;
        handler_.OnDataNeeded(query, answer);
    }

  private:
    PhraseTree phrases_;
    MacroFixture macros_;
    MenuHistoryFixture clips_;
    NativeProfileStore profile_;
    CVBRSettings settings_{profile_, {}};
    GuardFixture guard_;
    WinClock clock_;
    PopupMenuPresenter presenter_;
    IDataNeededHander_MenuSelf handler_;
};

// From the query to the first item of the menu that is drawn.
void MenuUntilItsFirstItem(benchmark::State& state) {
    const HWND window = CreateWindowExW(0, L"STATIC", L"bench", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0,
                                        0, 50, 50, nullptr, nullptr, nullptr, nullptr);
    SetForegroundWindow(window);
    const auto count = static_cast<std::size_t>(state.range(0));
    PhraseMenuFixture ours(window, count);
    BareMenu bare(count);
    const FirstItemHook hook;
    MeasureRatioOfTimes(
        state, 1.3, [&] { return TimeToFirstItem([&] { ours.Show(); }); },
        [&] { return TimeToFirstItem([&] { bare.Show(); }); });
    DestroyWindow(window);
}
BENCHMARK(MenuUntilItsFirstItem)->Arg(50)->Arg(500)->Iterations(Rounds(31))->UseManualTime();

}  // namespace
}  // namespace vbr::bench
