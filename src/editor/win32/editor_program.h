// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <string_view>

namespace vbr {

// The editor's process from start to end; the exit code. Of two editors the second hands over what
// it was started for and ends.
int RunEditor(std::u16string_view cmdLine);

}  // namespace vbr
