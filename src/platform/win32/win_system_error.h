// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "platform/system_error.h"

namespace vbr {

// An error code of the system with the system's own words for it.
SystemError SystemErrorOf(std::uint32_t code);

}  // namespace vbr
