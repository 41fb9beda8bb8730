// SPDX-License-Identifier: MIT
#include "base/cursor_steps.h"

#include <algorithm>
#include <iterator>

#include "base/mark_ranges.h"
#include "base/text.h"

namespace vbr {
namespace {

constexpr char32_t kJoiner = 0x200D;
constexpr char32_t kFirstMark = 0x0300;

bool IsWithin(char32_t c, char32_t first, char32_t last) {
    return c >= first && c <= last;
}

// The code point at the place, which moves behind it. A lone surrogate stands for itself.
char32_t NextCodePoint(std::u16string_view text, std::size_t& at) {
    const char16_t unit = text[at++];
    if (IsHighSurrogate(unit) && at < text.size() && IsLowSurrogate(text[at])) {
        return 0x10000 + ((unit & 0x3FFU) << 10) + (text[at++] & 0x3FFU);
    }
    return unit;
}

// Skin tones, tags of flags and variants stand beyond the first 64 K.
bool IsMark(char32_t c) {
    if (c > 0xFFFF) {
        return IsWithin(c, 0x1F3FB, 0x1F3FF) || IsWithin(c, 0xE0020, 0xE01EF);
    }
    const auto* const range =
        std::upper_bound(std::begin(kMarkRanges), std::end(kMarkRanges), c,
                         [](char32_t value, const UnitRange& r) { return value < r.First; });
    return range != std::begin(kMarkRanges) && c <= std::prev(range)->Last;
}

bool IsFlagLetter(char32_t c) {
    return IsWithin(c, 0x1F1E6, 0x1F1FF);
}

// Arrows, signs and pictures that a joiner can add to an emoji.
bool IsPicture(char32_t c) {
    return IsWithin(c, 0x2190, 0x2BFF) || IsWithin(c, 0x1F000, 0x1FAFF);
}

}  // namespace

std::size_t CursorSteps(std::u16string_view text) {
    std::size_t steps = 0;
    char32_t before = 0;
    bool isFlagOpen = false;
    for (std::size_t at = 0; at < text.size();) {
        const char32_t c = NextCodePoint(text, at);
        if (c < kFirstMark) {
            steps += c == U'\n' ? 0 : 1;
        } else {
            const bool closesFlag = isFlagOpen && IsFlagLetter(c);
            const bool isJoined = before == kJoiner && IsPicture(c);
            steps += closesFlag || isJoined || IsMark(c) ? 0 : 1;
        }
        isFlagOpen = IsFlagLetter(c) && !isFlagOpen;
        before = c;
    }
    return steps;
}

}  // namespace vbr
