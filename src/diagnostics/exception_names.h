// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

namespace vbr {

// The system's name of an exception code; "Not found" for a code without one.
std::u16string_view ExceptionCodeName(std::uint32_t code);

}  // namespace vbr
