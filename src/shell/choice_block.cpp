// SPDX-License-Identifier: MIT
#include "shell/choice_block.h"

#include <cstring>

namespace vbr {
namespace {

constexpr std::size_t kTargetOffset = 134;

std::uint32_t ReadNumber(std::span<const std::byte> block, std::size_t offset) {
    std::uint32_t number = 0;
    std::memcpy(&number, block.data() + offset, sizeof number);
    return number;
}

}  // namespace

std::optional<ChoiceBlock> ReadChoiceBlock(std::span<const std::byte> block) {
    if (block.size() < kTargetOffset + sizeof(std::uint32_t)) {
        return std::nullopt;
    }
    return ChoiceBlock{static_cast<std::int32_t>(ReadNumber(block, 0)),
                       ReadNumber(block, kTargetOffset)};
}

}  // namespace vbr
