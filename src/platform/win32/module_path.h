// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace vbr {

// The full path of this program's file.
std::u16string ModulePath();

}  // namespace vbr
