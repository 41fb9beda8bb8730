// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include "diagnostics/window_entries.h"

namespace vbr {

// The window as it is now, for the log. Any value may be asked about.
WindowState StateOf(HWND window);

}  // namespace vbr
