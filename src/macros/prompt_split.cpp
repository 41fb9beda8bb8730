// SPDX-License-Identifier: MIT
#include "macros/prompt_split.h"

#include "base/text.h"
#include "macros/macro_tokens.h"

namespace vbr {

std::vector<SegmentPlace> FindSegments(std::u16string_view text) {
    std::vector<SegmentPlace> segments;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t open = FindNoCase(text, kPromptOpen, at);
        const std::size_t close =
            open == text.npos ? text.npos : text.find(kPromptClose, open + kPromptOpen.size());
        if (close == text.npos) {
            break;
        }
        if (open > at) {
            segments.push_back({SegmentKind::Text, at, open});
        }
        at = close + kPromptClose.size();
        segments.push_back({SegmentKind::Prompt, open, at});
    }
    if (at < text.size() || segments.empty()) {
        segments.push_back({SegmentKind::Text, at, text.size()});
    }
    return segments;
}

std::u16string_view TextOf(const SegmentPlace& segment, std::u16string_view text) {
    text = text.substr(segment.Begin, segment.End - segment.Begin);
    if (segment.Kind == SegmentKind::Prompt) {
        text.remove_prefix(kPromptOpen.size());
        text.remove_suffix(kPromptClose.size());
    }
    return text;
}

std::vector<TextSegment> SplitPromptMacros(std::u16string_view text) {
    std::vector<TextSegment> segments;
    for (const SegmentPlace& segment : FindSegments(text)) {
        segments.push_back({segment.Kind, std::u16string(TextOf(segment, text))});
    }
    return segments;
}

}  // namespace vbr
