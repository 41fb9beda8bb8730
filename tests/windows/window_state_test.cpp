// SPDX-License-Identifier: MIT
#include "diagnostics/win32/window_state.h"

#include <gtest/gtest.h>

#include "windows/message_window.h"

namespace vbr {
namespace {

TEST(WindowStateOf, TellsTheClassOfAWindowAndThatOneIsGone) {
    MessageWindow window;
    const HWND handle = window.Get();
    const WindowState alive = StateOf(handle);
    window.Destroy();
    const WindowState gone = StateOf(handle);
    EXPECT_EQ(alive.Window, reinterpret_cast<WindowHandle>(handle));
    EXPECT_TRUE(alive.IsWindow);
    EXPECT_EQ(alive.ClassName, u"Static");
    EXPECT_FALSE(gone.IsWindow);
    EXPECT_EQ(gone.ClassName, u"");
}

}  // namespace
}  // namespace vbr
