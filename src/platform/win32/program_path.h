// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <string>

namespace vbr {

// The full path of a process's program, also of one with more rights; empty when it is not told.
std::u16string ProgramPathOf(DWORD process);

}  // namespace vbr
