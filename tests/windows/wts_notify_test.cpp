// SPDX-License-Identifier: MIT
#include "exchange/win32/wts_notify.h"

#include <gtest/gtest.h>

#include "windows/message_window.h"

namespace vbr {
namespace {

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
