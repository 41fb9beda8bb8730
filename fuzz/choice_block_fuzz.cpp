// SPDX-License-Identifier: MIT
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

#include "fuzzing.h"
#include "shell/choice_block.h"

// A block of WM_COPYDATA from anybody: read only where it is, and the same wherever it lies.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::span<const std::byte> block = std::as_bytes(std::span(data, size));
    const auto choice = vbr::ReadChoiceBlock(block);
    vbr::Require(choice.has_value() == (size >= 138));
    std::vector<std::byte> moved(size + 1);
    if (size > 0) {
        std::memcpy(moved.data() + 1, data, size);
    }
    const auto again = vbr::ReadChoiceBlock(std::span(moved).subspan(1));
    vbr::Require(choice.has_value() == again.has_value());
    vbr::Require(!choice || (choice->Choice == again->Choice && choice->Target == again->Target));
    return 0;
}
