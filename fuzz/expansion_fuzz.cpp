// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fakes/fake_clock.h"
#include "fakes/fake_locale.h"
#include "fakes/fake_rich_text_engine.h"
#include "fakes/fake_system_info.h"
#include "fuzzing.h"
#include "macros/macro_engine.h"
#include "macros/macro_tokens.h"
#include "macros/prompt_split.h"

namespace {

void CheckSplit(std::u16string_view text) {
    std::u16string_view rest = text;
    const auto take = [&rest](std::u16string_view piece) {
        vbr::Require(vbr::StartsWithNoCase(rest, piece));
        rest.remove_prefix(piece.size());
    };
    for (const vbr::TextSegment& segment : vbr::SplitPromptMacros(text)) {
        const bool prompt = segment.Kind == vbr::SegmentKind::Prompt;
        take(prompt ? vbr::kPromptOpen : std::u16string_view());
        vbr::Require(rest.starts_with(segment.Text));
        take(segment.Text);
        take(prompt ? vbr::kPromptClose : std::u16string_view());
    }
    vbr::Require(rest.empty());
}

void CheckExpansion(const std::array<std::u16string, 3>& parts) {
    vbr::FakeClock clock;
    clock.Local = {.Year = 2025, .Month = 3, .DayOfWeek = 3, .Day = 5};
    const vbr::FakeLocale locale;
    const vbr::FakeSystemInfo system;
    const vbr::FakeKeyboardLayouts layouts;
    vbr::NoLog log;
    const vbr::MacroValues values(clock, locale, system);
    const vbr::MacroEngine engine(values, layouts, locale, log);

    const std::u16string& text = parts[0];
    std::u16string expanded = text;
    const vbr::MacroOutcome outcome =
        engine.ExpandMacros(expanded, {parts[1], parts[2], vbr::kEnglish});
    const auto& tokens = engine.GetMacroList();
    const bool plain = std::none_of(tokens.begin(), tokens.end(), [&](const std::u16string& token) {
        return token != vbr::kMacroCursorPos && text.find(token) != text.npos;
    });
    if (plain) {
        // What stood on both sides of a mark may make another, which stays.
        std::u16string unmarked = text;
        const std::size_t marks = vbr::ReplaceAll(unmarked, vbr::kMacroCursorPos, u"");
        vbr::Require(expanded == unmarked);
        vbr::Require(outcome.Replaced == 0 && outcome.Layout == 0);
        vbr::Require(marks > 0 || !outcome.CursorBack);
    }
}

}  // namespace

// The phrase, the selection, the clipboard: a split loses nothing, an expansion ends and touches
// nothing but its tokens.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto parts = vbr::InputParts<3>(vbr::InputText(data, size));
    CheckSplit(parts[0]);
    CheckExpansion(parts);
    return 0;
}
