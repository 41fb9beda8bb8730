// SPDX-License-Identifier: MIT
#include "diagnostics/win32/window_state.h"

#include <gtest/gtest.h>

namespace vbr {
namespace {

TEST(WindowStateOf, TellsTheClassOfAWindowAndThatOneIsGone) {
    const HWND window =
        CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    const WindowState alive = StateOf(window);
    DestroyWindow(window);
    const WindowState gone = StateOf(window);
    EXPECT_EQ(alive.Window, reinterpret_cast<WindowHandle>(window));
    EXPECT_TRUE(alive.IsWindow);
    EXPECT_EQ(alive.ClassName, u"Static");
    EXPECT_FALSE(gone.IsWindow);
    EXPECT_EQ(gone.ClassName, u"");
}

}  // namespace
}  // namespace vbr
