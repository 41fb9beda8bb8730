// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "platform/window_handle.h"

namespace vbr {

// A choice that another process sends by WM_COPYDATA.
struct ChoiceBlock {
    std::int32_t Choice = 0;
    WindowHandle Target = 0;
};

// Little endian: the choice in the first 32 bits, the target window's 32 bits 134 bytes in.
// Nothing for a shorter block.
std::optional<ChoiceBlock> ReadChoiceBlock(std::span<const std::byte> block);

}  // namespace vbr
