// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

namespace vbr {

// Gives a window an icon of the program's resources, in the system's two sizes.
void SetWindowIcons(HWND window, int icon);

}  // namespace vbr
