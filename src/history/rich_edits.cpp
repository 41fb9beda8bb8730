// SPDX-License-Identifier: MIT
#include "history/rich_edits.h"

#include <algorithm>
#include <string>
#include <vector>

namespace vbr {
namespace {

constexpr std::u16string_view kTrimmed = u" \r\n";
constexpr std::u16string_view kBreaks[] = {u"\r\n", u"\n", u"\r"};
constexpr char16_t kObject = 0xFFFC;

// What parts lines and cells, or stands for a picture, and is more than its unit.
bool IsStructure(char16_t unit) {
    return unit < u' ' || unit == kObject;
}

// For engines that load letters as they are. A text in the place of a stretch gets the format of
// the stretch's start, so each stretch has one format.
bool TurnLetters(RichTextEngine& engine, LetterCase letterCase, const Locale& locale) {
    const auto turn = [&](std::u16string_view text) {
        return letterCase == LetterCase::Upper ? locale.Upper(text) : locale.Lower(text);
    };
    const auto text = engine.Text();
    if (!text) {
        const std::u16string plain = engine.PlainText();
        return turn(plain) == plain;
    }
    const std::u16string turned = turn(*text);
    if (turned.size() != text->size()) {
        return false;
    }
    for (std::size_t begin = 0; begin < text->size();) {
        if (turned[begin] == (*text)[begin]) {
            ++begin;
            continue;
        }
        const auto structure = std::find_if(text->begin() + static_cast<std::ptrdiff_t>(begin),
                                            text->end(), IsStructure);
        const std::size_t end =
            engine.SameFormatEnd({begin, static_cast<std::size_t>(structure - text->begin())});
        engine.ReplaceRange({begin, end}, std::u16string_view(turned).substr(begin, end - begin));
        begin = end;
    }
    return true;
}

std::vector<std::size_t> FindAll(const RichTextEngine& engine, std::u16string_view what) {
    std::vector<std::size_t> found;
    // An engine may find the end of the last paragraph too, which is no part of the text.
    const std::size_t length = engine.Length();
    for (auto at = engine.Find(what, 0); at && *at < length;
         at = engine.Find(what, *at + what.size())) {
        found.push_back(*at);
    }
    return found;
}

// Each change takes a control the time of the paragraph that comes out of it. So neighbours are
// joined by twos, then these by twos, and not all to an ever longer one.
void JoinByTwos(RichTextEngine& engine, const std::vector<std::size_t>& ends) {
    for (std::size_t step = 1; step <= ends.size(); step *= 2) {
        for (std::size_t i = step - 1; i < ends.size(); i += 2 * step) {
            engine.ReplaceRange({ends[i], ends[i] + 1}, u" ");
        }
    }
}

}  // namespace

bool LoadRichInCase(RichTextEngine& engine, std::u16string_view source, LetterCase letterCase,
                    const Locale& locale) {
    if (!engine.LoadSourceInCase(source, letterCase)) {
        return false;
    }
    engine.ClearEffects();
    return TurnLetters(engine, letterCase, locale);
}

std::size_t TrimRich(RichTextEngine& engine) {
    auto text = engine.Text();
    if (!text) {
        return 0;
    }
    const std::size_t before = text->size();
    for (const char16_t unit : kTrimmed) {
        const std::size_t end = text->find_last_not_of(unit) + 1;
        if (end < text->size()) {
            engine.ReplaceRange({end, text->size()}, {});
            text->resize(end);
        }
        const std::size_t start = std::min(text->find_first_not_of(unit), text->size());
        if (start > 0) {
            engine.ReplaceRange({0, start}, {});
            text->erase(0, start);
        }
    }
    return before - std::min(before, engine.Length());
}

std::size_t JoinRich(RichTextEngine& engine) {
    std::size_t count = 0;
    for (const std::u16string_view lineBreak : kBreaks) {
        const std::vector<std::size_t> found = FindAll(engine, lineBreak);
        if (lineBreak.size() == 1) {
            JoinByTwos(engine, found);
        } else {
            std::for_each(found.rbegin(), found.rend(), [&](std::size_t at) {
                engine.ReplaceRange({at, at + lineBreak.size()}, u" ");
            });
        }
        count += found.size();
    }
    return count;
}

}  // namespace vbr
