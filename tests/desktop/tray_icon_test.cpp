// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <algorithm>
#include <shellapi.h>

#include "desktop/driver/taskbar.h"
#include "desktop/program_test.h"
#include "platform/object_names.h"
#include "platform/win32/wide.h"

namespace vbr::desktop {
namespace {

bool IsAdded(const IconNotice& notice) {
    return notice.Message == NIM_ADD;
}

// The program's icon, as the shell gets it.
class TrayIconOnDesktop : public ProgramTest {
  protected:
    static IconNotice WaitForIcon(const Taskbar& taskbar) {
        EXPECT_TRUE(taskbar.WaitFor(IsAdded));
        const std::vector<IconNotice> notices = taskbar.Notices();
        const auto added = std::find_if(notices.begin(), notices.end(), IsAdded);
        return added == notices.end() ? IconNotice() : *added;
    }
};

TEST_F(TrayIconOnDesktop, IsOfferedAgainUntilTheShellTakesIt) {
    const Taskbar taskbar(2);
    StartWithPhrase("text");
    EXPECT_TRUE(WaitUntil([&] { return taskbar.Count(IsAdded) == 3; }));
    // What follows an icon that was taken.
    EXPECT_TRUE(
        taskbar.WaitFor([](const IconNotice& notice) { return notice.Message == NIM_SETVERSION; }));
    EXPECT_EQ(taskbar.Count(IsAdded), 3);
}

TEST_F(TrayIconOnDesktop, ComesBackWithTheShell) {
    const Taskbar taskbar;
    StartWithPhrase("text");
    const IconNotice icon = WaitForIcon(taskbar);
    EXPECT_EQ(icon.Window, TrayWindow());
    EXPECT_NE(icon.Tip.find(u"[1/1]"), icon.Tip.npos) << Utf16ToUtf8(icon.Tip);
    const std::size_t told = taskbar.Notices().size();
    const auto isBack = [&](const IconNotice& notice) {
        return IsAdded(notice) && notice.Tip == icon.Tip;
    };
    // The thread that has just added the icon may be about to end; until then it takes no order.
    EXPECT_TRUE(WaitUntil([&] {
        PostMessageW(HWND_BROADCAST, RegisterWindowMessageW(Wide(kMessageTaskbarCreated.data())), 0,
                     0);
        return taskbar.Count(isBack, told) > 0;
    }));
}

TEST_F(TrayIconOnDesktop, OpensTheMenuAtTheMouseForEachClickAndForNothingElse) {
    const Taskbar taskbar;
    StartWithPhrase("text");
    const IconNotice icon = WaitForIcon(taskbar);
    for (const LPARAM other : {WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONDBLCLK, WM_RBUTTONDOWN}) {
        SendMessageW(icon.Window, icon.CallbackMessage, 0, other);
        EXPECT_FALSE(IsMenuOpen()) << other;
    }
    const LPARAM clicks[] = {WM_LBUTTONUP, WM_RBUTTONUP, NIN_BALLOONUSERCLICK};
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

TEST_F(TrayIconOnDesktop, TellsThatAHotKeyCameAndTakesTheBalloonAway) {
    const Taskbar taskbar;
    StartWithPhrase("text");
    WaitForIcon(taskbar);
    const Notepad notepad;
    const std::size_t told = taskbar.Notices().size();
    OpenMenu(notepad);
    EXPECT_TRUE(taskbar.WaitFor(
        [](const IconNotice& notice) {
            return notice.Balloon.find(u"Ctrl+Alt+") != notice.Balloon.npos;
        },
        told));
    // Its time ends while the menu is still open.
    EXPECT_TRUE(taskbar.WaitFor(
        [](const IconNotice& notice) {
            return (notice.Flags & NIF_INFO) != 0 && notice.Balloon.empty();
        },
        told));
    EXPECT_TRUE(IsMenuOpen());
    CloseMenu();
}

TEST_F(TrayIconOnDesktop, SaysThatTheProgramEndsAndGoesWithIt) {
    const Taskbar taskbar;
    StartWithPhrase("text");
    WaitForIcon(taskbar);
    EXPECT_EQ(program_.End(), 0U);
    EXPECT_EQ(taskbar.Count([](const IconNotice& notice) {
        return EndsWithNoCase(notice.BalloonTitle, u", Exit...");
    }),
              1);
    EXPECT_EQ(taskbar.Notices().back().Message, DWORD{NIM_DELETE});
}

}  // namespace
}  // namespace vbr::desktop
