// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>
#include <initializer_list>
#include <string_view>
#include <utility>

#include "base/text.h"

namespace vbr {

using TextCase = std::pair<std::u16string_view, std::u16string_view>;

// What `turn` makes of the first text of each case is the second one.
template <typename Turn>
void ExpectTexts(std::initializer_list<TextCase> cases, Turn turn) {
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(turn(text), expected) << Utf16ToUtf8(text);
    }
}

}  // namespace vbr
