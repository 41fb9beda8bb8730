// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

namespace vbr {

// Security attributes that give everybody full access, for what processes of different rights
// share. Null when they can't be built: the object then gets the default security.
SECURITY_ATTRIBUTES* WorldSecurity();

}  // namespace vbr
