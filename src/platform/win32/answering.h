// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

namespace vbr {

inline constexpr UINT kAnswerMs = 200;

// Whether the window lives and its thread answers messages within the time.
bool Answers(HWND window, UINT patienceMs = kAnswerMs);

}  // namespace vbr
