// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

namespace vbr {

// Dots an inch for which fonts and measures of the system stand.
int SystemDpi();

// Dots an inch of the monitor at that point; the system's where monitors do not differ.
int DpiAt(POINT point);

// Height of a menu bar, in pixels.
int MenuHeightFor(int dpi);

}  // namespace vbr
