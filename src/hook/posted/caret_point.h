// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <optional>

namespace vbr::hook {

// Below the thread's own caret, in screen pixels; nothing when it has none.
std::optional<POINT> PointBelowCaret(const GUITHREADINFO& thread);

// The same of a caret that a window of the calling thread draws itself and tells of by its
// accessible caret object. The window's procedure runs within.
std::optional<POINT> PointBelowAccessibleCaret(HWND window);

}  // namespace vbr::hook
