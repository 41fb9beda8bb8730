// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <algorithm>
#include <shellapi.h>

#include "desktop/driver/taskbar.h"
#include "desktop/program_test.h"
#include "platform/object_names.h"

namespace vbr::desktop {
namespace {

// It follows an icon that was taken.
bool IsTaken(const IconNotice& notice) {
    return notice.Message == NIM_SETVERSION;
}

// The program's icon, as the shell gets it.
class TrayIconOnDesktop : public ProgramTest {};

TEST_F(TrayIconOnDesktop, IsOfferedUntilTheShellTakesItAndAgainWhenTheShellComesBack) {
    const Taskbar taskbar(1);
    StartWithPhrase("text");
    const IconNotice icon = taskbar.WaitFor(IsTaken);
    EXPECT_EQ(icon.Window, TrayWindow());
    EXPECT_NE(icon.Tip.find(u"[1/1]"), icon.Tip.npos) << Utf16ToUtf8(icon.Tip);
    const std::vector<IconNotice> told = taskbar.Notices();
    EXPECT_EQ(std::ranges::count(told, DWORD{NIM_ADD}, &IconNotice::Message), 2);
    PostMessageW(HWND_BROADCAST, RegisterWindowMessageW(Wide(kMessageTaskbarCreated.data())), 0, 0);
    EXPECT_EQ(taskbar.WaitFor(IsTaken, told.size()).Tip, icon.Tip);
}

TEST_F(TrayIconOnDesktop, OpensTheMenuAtTheMouseForEachClickAndForNothingElse) {
    const Taskbar taskbar;
    StartWithPhrase("text");
    const IconNotice icon = taskbar.WaitFor(IsTaken);
    for (const LPARAM other : {WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONDBLCLK, WM_RBUTTONDOWN}) {
        SendMessageW(icon.Window, icon.CallbackMessage, 0, other);
        EXPECT_FALSE(IsMenuOpen()) << other;
    }
    const LPARAM clicks[] = {WM_LBUTTONUP, WM_RBUTTONUP,  NIN_BALLOONUSERCLICK,
                             NIN_SELECT,   NIN_KEYSELECT, WM_CONTEXTMENU};
    for (const LPARAM click : clicks) {
        SetCursorPos(300, 200);
        PostMessageW(icon.Window, icon.CallbackMessage, 0, click);
        ASSERT_TRUE(WaitForMenu()) << click;
        RECT menu{};
        GetWindowRect(TopMenuWindow(), &menu);
        EXPECT_EQ(menu.left, 300);
        EXPECT_EQ(menu.top, 200);
        CloseMenu();
    }
}

TEST_F(TrayIconOnDesktop, BalloonsTellOfAHotKeyForAWhileAndOfTheEnd) {
    const Taskbar taskbar;
    StartWithPhrase("text");
    const Notepad notepad;
    const std::size_t told = taskbar.Notices().size();
    OpenMenu(notepad);
    const auto namesTheKey = [](const IconNotice& notice) {
        return notice.Balloon.find(u"Ctrl+Alt+") != notice.Balloon.npos;
    };
    const auto takesTheBalloonAway = [](const IconNotice& notice) {
        return (notice.Flags & NIF_INFO) != 0 && notice.Balloon.empty();
    };
    EXPECT_TRUE(taskbar.WaitFor(namesTheKey, told).Window);
    // Its time ends while the menu is still open.
    EXPECT_TRUE(taskbar.WaitFor(takesTheBalloonAway, told).Window);
    EXPECT_TRUE(IsMenuOpen());
    CloseMenu();
    EXPECT_EQ(program_.End(), 0U);
    const auto tellsTheEnd = [](const IconNotice& notice) {
        return EndsWithNoCase(notice.BalloonTitle, u", Exit...");
    };
    const std::vector<IconNotice> all = taskbar.Notices();
    EXPECT_EQ(std::ranges::count_if(all, tellsTheEnd), 1);
    EXPECT_EQ(all.back().Message, DWORD{NIM_DELETE});
}

TEST_F(TrayIconOnDesktop, ASecondStartEndsTurnsTheServiceOnAndIsTold) {
    const Taskbar taskbar;
    ASSERT_TRUE(program_.StartResident(L"/noinstall"));
    EXPECT_FALSE(OpenSignal(kEventDataNeeded));
    const auto isTold = [](const IconNotice& notice) {
        return EndsWithNoCase(notice.BalloonTitle, u", Already works");
    };
    for (int i = 0; i < 2; ++i) {
        const std::size_t told = taskbar.Notices().size();
        EXPECT_EQ(program_.Start().WaitForExit(kPatienceMs), 1U);
        EXPECT_TRUE(taskbar.WaitFor(isTold, told).Window);
    }
    EXPECT_TRUE(OpenSignal(kEventDataNeeded));
}

}  // namespace
}  // namespace vbr::desktop
