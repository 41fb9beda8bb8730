// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "platform/window_handle.h"

namespace vbr {

// Values of WPQuery::StateSelText.
inline constexpr std::int32_t kSelTextNone = 0;
inline constexpr std::int32_t kSelTextFailed = 1;     // the target side could not get it
inline constexpr std::int32_t kSelTextExtracted = 2;  // got by a simulated copy

// What is known of the target when the menu is to open.
struct WPQuery {
    std::u16string AppPath;
    std::u16string WindowClassName;
    WindowHandle TargetWindow = 0;
    LayoutHandle Hkl = 0;  // keyboard layout of the target's thread
    std::u16string SelText;
    std::int32_t StateSelText = kSelTextNone;
    std::int32_t PointX = -1;  // both -1: the place of the mouse cursor
    std::int32_t PointY = -1;
};

}  // namespace vbr
