// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "platform/window_handle.h"

namespace vbr {

// Values of WPQuery::StateSelText.
inline constexpr std::int32_t kSelTextNone = 0;
inline constexpr std::int32_t kSelTextFailed = 1;     // the target side could not get it
inline constexpr std::int32_t kSelTextExtracted = 2;  // SelText holds it

// What is known of the target when the menu is to open.
struct WPQuery {
    std::u16string AppPath;
    std::u16string WindowClassName;
    WindowHandle TargetWindow = 0;
    GuiThreadWindows GuiThreadInfo;
    LayoutHandle Hkl = 0;  // keyboard layout of the target's thread
    std::u16string SelText;
    std::int32_t StateSelText = kSelTextNone;
    std::int32_t PointX = -1;  // screen; both -1: the place of the mouse cursor
    std::int32_t PointY = -1;
};

// The state in words, for the log.
std::u16string_view DescribeStateSelText(std::int32_t state);

}  // namespace vbr
