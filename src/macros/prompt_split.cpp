// SPDX-License-Identifier: MIT
#include "macros/prompt_split.h"

#include "base/text.h"
#include "macros/macro_tokens.h"

namespace vbr {

std::vector<TextSegment> SplitPromptMacros(std::u16string_view text) {
    std::vector<TextSegment> segments;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t open = FindNoCase(text, kPromptOpen, at);
        const std::size_t close =
            open == text.npos ? text.npos : text.find(kPromptClose, open + kPromptOpen.size());
        if (close == text.npos) {
            break;
        }
        if (open > at) {
            segments.push_back({SegmentKind::Text, std::u16string(text.substr(at, open - at))});
        }
        const std::size_t content = open + kPromptOpen.size();
        segments.push_back(
            {SegmentKind::Prompt, std::u16string(text.substr(content, close - content))});
        at = close + kPromptClose.size();
    }
    if (at < text.size() || segments.empty()) {
        segments.push_back({SegmentKind::Text, std::u16string(text.substr(at))});
    }
    return segments;
}

}  // namespace vbr
