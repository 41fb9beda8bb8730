// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vbr {

// The largest number that has words: 999 milliards and the groups below.
inline constexpr std::uint64_t kNumberWordsMax = 999'999'999'999;

// A number in Russian words, 0 to kNumberWordsMax.
std::u16string NumberToWords(std::uint64_t number);

// The text with each run of decimal digits in words; a run beyond kNumberWordsMax stays.
std::u16string NumbersInTextToWords(std::u16string_view text);

}  // namespace vbr
