// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

namespace vbr {

// Makes window classes of the common controls available: ICC_ bits. The library is the one that the
// manifest asks for, and stays loaded.
void UseCommonControls(DWORD classes);

}  // namespace vbr
