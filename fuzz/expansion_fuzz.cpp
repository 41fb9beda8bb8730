// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/text.h"
#include "fakes/fake_clock.h"
#include "fakes/fake_locale.h"
#include "fakes/fake_rich_text_engine.h"
#include "fakes/fake_system_info.h"
#include "macros/macro_engine.h"
#include "macros/macro_tokens.h"
#include "macros/prompt_split.h"
#include "platform/rich_reader.h"

namespace {

class NoLog : public vbr::Log {
  public:
    void Write(std::u16string_view) override {}
    void WriteBare(std::u16string_view) override {}
    void SetLogSection(std::u16string_view) override {}
};

void Require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

// The input's parts between line feeds: the phrase, the selection, the clipboard.
std::array<std::u16string, 3> Parts(std::string_view input) {
    std::array<std::u16string, 3> parts;
    for (std::u16string& part : parts) {
        const std::size_t end = input.find('\n');
        part = vbr::Utf8ToUtf16(input.substr(0, end));
        input = end == input.npos ? std::string_view() : input.substr(end + 1);
    }
    return parts;
}

void CheckSplit(std::u16string_view text) {
    std::u16string_view rest = text;
    const auto take = [&rest](std::u16string_view piece) {
        Require(vbr::StartsWithNoCase(rest, piece));
        rest.remove_prefix(piece.size());
    };
    for (const vbr::TextSegment& segment : vbr::SplitPromptMacros(text)) {
        const bool prompt = segment.Kind == vbr::SegmentKind::Prompt;
        take(prompt ? vbr::kPromptOpen : std::u16string_view());
        Require(rest.starts_with(segment.Text));
        take(segment.Text);
        take(prompt ? vbr::kPromptClose : std::u16string_view());
    }
    Require(rest.empty());
}

void CheckExpansion(const std::array<std::u16string, 3>& parts) {
    vbr::FakeClock clock;
    clock.Local = {.Year = 2025, .Month = 3, .DayOfWeek = 3, .Day = 5};
    const vbr::FakeLocale locale;
    const vbr::FakeSystemInfo system;
    const vbr::FakeKeyboardLayouts layouts;
    NoLog log;
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
        Require(expanded == unmarked);
        Require(outcome.Replaced == 0 && outcome.Layout == 0);
        Require(marks > 0 || !outcome.CursorBack);
    }
}

// Nothing of a source is read twice.
void CheckReading(std::u16string_view text) {
    const std::u16string source = vbr::Concat(u"{\\rtf1", text);
    Require(vbr::ReadRichText(source, vbr::FakeRichTextEngine()).size() <= text.size());
}

}  // namespace

// A split loses nothing, an expansion ends and touches nothing but its tokens, and any source can
// be read.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto parts = Parts(std::string_view(reinterpret_cast<const char*>(data), size));
    CheckSplit(parts[0]);
    CheckExpansion(parts);
    CheckReading(parts[0]);
    return 0;
}
