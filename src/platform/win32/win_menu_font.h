// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <array>
#include <cstdint>

namespace vbr {

// The bytes of the LOGFONTW that the system draws menus with; zeros when it can't be asked.
std::array<std::uint8_t, sizeof(LOGFONTW)> SystemMenuFont();

}  // namespace vbr
