// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

namespace vbr {

// Whether the window lives and its thread answers messages, asked for a fifth of a second.
bool Answers(HWND window);

}  // namespace vbr
