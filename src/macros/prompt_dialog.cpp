// SPDX-License-Identifier: MIT
#include "macros/prompt_dialog.h"

#include <algorithm>
#include <cstdint>

#include "base/text.h"

namespace vbr {
namespace {

constexpr std::size_t kTargetTitleMax = 100;

// A stretch of that length that begins at `start`, moved between the bounds; the low one wins.
std::int32_t Within(std::int32_t start, std::int32_t length, std::int32_t low, std::int32_t high) {
    return std::max(low, std::min(start, high - length));
}

}  // namespace

std::u16string PromptTitle(std::u16string_view program, std::u16string_view target) {
    if (target.empty()) {
        return std::u16string(program);
    }
    return Concat(program, u" - [", CutUnits(target, kTargetTitleMax), u"]");
}

std::u16string PromptAnswer(std::u16string_view defaultText, bool edited,
                            std::u16string_view content) {
    // A control of one line does not show all of a default text that has several.
    return std::u16string(edited && !content.empty() ? content : defaultText);
}

Rect PlacePrompt(Size dialog, const PromptSurroundings& around) {
    std::int32_t left = 0;
    std::int32_t top = 0;
    if (around.Caret) {
        left = around.Caret->Left;
        top = around.Caret->Bottom;
        if (top + dialog.Height > around.WorkArea.Bottom) {
            top = around.Caret->Top - dialog.Height;
        }
    } else {
        left = (around.Target.Left + around.Target.Right - dialog.Width) / 2;
        top = (around.Target.Top + around.Target.Bottom - dialog.Height) / 2;
    }
    left = Within(left, dialog.Width, around.WorkArea.Left, around.WorkArea.Right);
    top = Within(top, dialog.Height, around.WorkArea.Top, around.WorkArea.Bottom);
    return {left, top, left + dialog.Width, top + dialog.Height};
}

}  // namespace vbr
