// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

namespace vbr::hook {

// Wine loads a hook library into a program and never lets go of it. There, this makes the library
// leave all programs that still have it, but waits no longer than half a second for them; a program
// that hangs keeps a copy that nobody calls. On Windows the system itself sees to that, and this
// does nothing.
void LetTargetsGo(HMODULE module);

}  // namespace vbr::hook
