// SPDX-License-Identifier: MIT
#include "platform/win32/window_base.h"

#include <gtest/gtest.h>
#include <vector>

#include "fakes/fake_alert_box.h"
#include "fakes/fake_clock.h"
#include "fakes/memory_log.h"
#include "menu/win32/menu_tracker.h"
#include "platform/win32/win_fault_catcher.h"
#include "platform/win32/win_menu_font.h"
#include "settings/embedded_strings.h"

namespace vbr {
namespace {

// No memory of this process, or nothing that a message may point to.
constexpr LPARAM kAddresses[] = {0, 16, 0x7FFF'0000'0000, -1};

class CountingWindow : public WindowBase {
  public:
    int Creations = 0;

    bool Make() {
        WindowCreation creation;
        creation.ClassName = L"Vellumbridge_Test_Counting";
        creation.Parent = HWND_MESSAGE;
        return Create(creation);
    }

  protected:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM, LPARAM) override {
        Creations += message == WM_CREATE ? 1 : 0;
        return std::nullopt;
    }
};

TEST(WindowBaseTest, IsMadeOnceWhateverAnybodySends) {
    CountingWindow window;
    for (int round = 0; round < 2; ++round) {
        ASSERT_TRUE(window.Make());
        const HWND handle = window.Handle();
        EXPECT_EQ(window.Creations, round + 1);
        for (const LPARAM address : kAddresses) {
            EXPECT_EQ(SendMessageW(handle, WM_NCCREATE, 0, address), 0);
            EXPECT_EQ(SendMessageW(handle, WM_CREATE, 0, address), 0);
        }
        EXPECT_EQ(window.Creations, round + 1);
        EXPECT_EQ(window.Handle(), handle);
        DestroyWindow(handle);
        EXPECT_FALSE(window.Handle());
    }
}

TEST(MenuTrackerTest, MessagesWithWildAddressesAreSurvived) {
    MemoryLog log;
    EmbeddedStrings strings;
    FakeAlertBox box;
    FakeClock clock;
    ErrorReport report(log, strings, box);
    WinFaultCatcher faults;
    GuardedSections guard(faults, report);
    const FontBytes font = SystemMenuFont();
    MenuPainter painter(font, guard);
    PhraseMenu items(1);
    items[0].Info.Label = u"A phrase";
    ShownMenu menu(std::move(items));
    painter.Begin(menu, 96);
    {
        CMenuTracker tracker(
            {.Painter = painter,
             .Texts = strings,
             .Clock = clock,
             .Faults = faults,
             .Log = log,
             .OnRightCommand = [](RightMenuCode, const MenuSubject&) { return false; },
             .TipSource = nullptr,
             .Editor = u""},
            menu);
        const HWND window = tracker.Create(true);
        ASSERT_TRUE(window);
        for (const LPARAM address : kAddresses) {
            for (const UINT message :
                 {WM_MEASUREITEM, WM_DRAWITEM, WM_NOTIFY, WM_MENUSELECT, WM_MENUCHAR,
                  WM_MENURBUTTONUP, WM_ENTERIDLE, WM_APP + 1, WM_APP + 2, WM_EXITMENULOOP}) {
                SendMessageW(window, message, 0, address);
            }
            // Memory that can't be written.
            static constexpr MEASUREITEMSTRUCT kConstant{};
            SendMessageW(window, WM_MEASUREITEM, 0, reinterpret_cast<LPARAM>(&kConstant));
            // Good structures with wild data in them.
            DRAWITEMSTRUCT drawn{};
            drawn.itemData = static_cast<ULONG_PTR>(address);
            EXPECT_EQ(SendMessageW(window, WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&drawn)), 0);
            MEASUREITEMSTRUCT measured{};
            measured.itemData = static_cast<ULONG_PTR>(address);
            SendMessageW(window, WM_MEASUREITEM, 0, reinterpret_cast<LPARAM>(&measured));
            EXPECT_EQ(measured.itemHeight, 0U);
        }
    }
    painter.End();
}

}  // namespace
}  // namespace vbr
