// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

// Where systems differ that run the same programs. The shipped library has Windows' own manners,
// system_manners.cpp; that for tests has wine/wine_manners.cpp.
namespace vbr::hook {

// The notice that tells of the window in front.
DWORD ForegroundEvent();

// Has other programs let go of the library, which isn't hooked in any more.
void LetTargetsGo(HMODULE module);

}  // namespace vbr::hook
