// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vbr {

enum class SegmentKind { Text = 0, Prompt = 1 };

// A piece of a phrase: text that isn't expanded yet, or the default answer of a prompt.
struct TextSegment {
    SegmentKind Kind = SegmentKind::Text;
    std::u16string Text;

    bool operator==(const TextSegment&) const = default;
};

// The place of a segment in the whole text, a prompt's with its token.
struct SegmentPlace {
    SegmentKind Kind = SegmentKind::Text;
    std::size_t Begin = 0;
    std::size_t End = 0;
};

// Splits a text at its prompt macros, in order. A prompt that isn't closed stays text, and an empty
// text gives one empty text segment.
std::vector<SegmentPlace> FindSegments(std::u16string_view text);
std::vector<TextSegment> SplitPromptMacros(std::u16string_view text);

// The text of a segment without the token around it.
std::u16string_view TextOf(const SegmentPlace& segment, std::u16string_view text);

}  // namespace vbr
