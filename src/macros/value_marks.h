// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace vbr {

// Around a value while a command is expanded. No text means anything by these characters.
inline constexpr char16_t kValueOpen = u'\uFDD0';
inline constexpr char16_t kValueClose = u'\uFDD1';

// The text without marks, so that nothing in it passes for a value or for the end of one.
std::u16string WithoutMarks(std::u16string_view text);

// A value between marks.
std::u16string MarkedValue(std::u16string_view value);

}  // namespace vbr
