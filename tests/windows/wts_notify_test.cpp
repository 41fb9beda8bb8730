// SPDX-License-Identifier: MIT
#include "exchange/win32/wts_notify.h"

#include <gtest/gtest.h>

namespace vbr {
namespace {

TEST(WtsNotify, AWindowIsRegisteredOnceUntilTheSystemLetsItGo) {
    const HWND window =
        CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    ASSERT_TRUE(window);
    const auto handle = reinterpret_cast<WindowHandle>(window);
    CWtsNotify notify;
    EXPECT_FALSE(notify.IsRegistered(handle));
    EXPECT_TRUE(notify.Register(handle, true));
    EXPECT_FALSE(notify.Register(handle, true));
    EXPECT_TRUE(notify.IsRegistered(handle));
    // Wine refuses every time.
    const bool gone = notify.Unregister(handle, true);
    EXPECT_EQ(notify.IsRegistered(handle), !gone);
    DestroyWindow(window);
    EXPECT_FALSE(notify.Register(handle + 1, true));
}

}  // namespace
}  // namespace vbr
