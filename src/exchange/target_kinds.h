// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace vbr {

// Whether windows of that class are edit or rich edit controls, which tell by messages whether
// anything is selected in them.
bool IsEditClass(std::u16string_view windowClass);

// Whether windows of that class are terminals, in which Ctrl+C ends the running program. `others`
// are further classes of the user, separated by semicolons.
bool IsTerminalClass(std::u16string_view windowClass, std::u16string_view others);

}  // namespace vbr
