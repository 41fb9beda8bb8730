// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <gtest/gtest.h>
#include <thread>

#include "exchange/win32/win_desktops.h"
#include "exchange/win32/wts_notify.h"
#include "fakes/memory_log.h"
#include "windows/message_window.h"

namespace vbr {
namespace {

TEST(WinDesktops, TheDesktopOfTheTestIsActiveHoweverOftenOneAsks) {
    WinDesktops desktops;
    MemoryLog log;
    for (int i = 0; i < 100; ++i) {
        ASSERT_TRUE(IsInputDesktopActive(desktops, log)) << Utf16ToUtf8(log.Lines.back());
    }
    const std::unique_ptr<Desktop> own = desktops.OpenOfThread();
    ASSERT_TRUE(own);
    EXPECT_TRUE(own->Name().Read);
}

TEST(WinDesktops, AThreadOnAnotherDesktopIsNotActive) {
    const HDESK other =
        CreateDesktopW(L"VellumbridgeTest", nullptr, nullptr, 0, GENERIC_ALL, nullptr);
    ASSERT_TRUE(other);
    bool active = true;
    MemoryLog log;
    std::thread([&] {
        ASSERT_TRUE(SetThreadDesktop(other));
        WinDesktops desktops;
        active = IsInputDesktopActive(desktops, log);
    }).join();
    CloseDesktop(other);
    EXPECT_FALSE(active);
    ASSERT_FALSE(log.Lines.empty());
    EXPECT_TRUE(log.Lines[0].starts_with(u"hDesk1=[VellumbridgeTest,1] hDesk2=["));
}

TEST(WtsNotify, AWindowIsRegisteredOnceUntilTheSystemLetsItGo) {
    MessageWindow window;
    const WindowHandle handle = window.Number();
    CWtsNotify notify;
    EXPECT_FALSE(notify.IsRegistered(handle));
    EXPECT_TRUE(notify.Register(handle, true));
    EXPECT_FALSE(notify.Register(handle, true));
    EXPECT_TRUE(notify.IsRegistered(handle));
    // Wine refuses every time.
    const bool gone = notify.Unregister(handle, true);
    EXPECT_EQ(notify.IsRegistered(handle), !gone);
    window.Destroy();
    EXPECT_FALSE(notify.Register(handle + 1, true));
}

}  // namespace
}  // namespace vbr
