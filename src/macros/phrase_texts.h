// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "macros/macro_engine.h"
#include "macros/rich_macros.h"
#include "phrases/command_record.h"
#include "platform/keyboard_layouts.h"
#include "platform/locale.h"
#include "platform/rich_text_engine.h"
#include "platform/strings.h"

namespace vbr {

// The phrase's title as the menu shows it, at most 40 UTF-16 units and "…".
std::u16string PhraseTitle(const VBRCommand& record);

// What a menu item shows of its phrase.
struct PhraseMenuTexts {
    std::u16string Caption;
    std::int32_t CursorIndex = -1;
    std::u16string Tip;  // with the caption as its title
    std::u16string Preview;
};

// The texts that explain a phrase before it is used: previews through the macros. Belongs to the
// main thread.
class PhraseTexts {
  public:
    struct Collaborators {
        const MacroEngine& Macros;
        const RichMacros& Rich;
        RichTextEngine& Engine;
        const KeyboardLayouts& Layouts;
        const vbr::Locale& Locale;
        const Strings& Texts;
    };

    explicit PhraseTexts(const Collaborators& with) : with_(with) {}

    // All that the menu shows of a phrase; a plain text is expanded once for it.
    PhraseMenuTexts BuildMenuTexts(const VBRCommand& record, const MacroInput& input) const;

    // The text of the phrase's menu item, on one line. `outCursorIndex` is the place of the cursor
    // mark in the expanded text, or -1.
    std::u16string BuildMenuCaption(const VBRCommand& record, const MacroInput& input,
                                    std::int32_t& outCursorIndex) const;

    // The tip of the phrase's menu item. `outPreview`, if not null, gets the expanded text.
    std::u16string BuildMenuTip(const VBRCommand& record, std::u16string_view title,
                                const MacroInput& input, std::u16string* outPreview) const;

    // Two letters for the keyboard layout that the text asks for, or nothing.
    std::u16string LayoutBadge(std::u16string_view text) const;

    // The units that the phrase gives without selection and clipboard, in the user's language.
    std::size_t ExpandedLength(const VBRCommand& record) const;

  private:
    struct Expansion {
        std::u16string Text;
        MacroOutcome Outcome;
    };

    Expansion Expand(std::u16string text, const MacroInput& input) const;
    std::u16string PlainCaption(const VBRCommand& record, const MacroInput& input,
                                const Expansion& expansion, std::int32_t& outCursorIndex) const;
    std::u16string RichCaption(const VBRCommand& record, const MacroInput& input) const;
    void FinishPreview(std::u16string& text, const MacroInput& input) const;
    std::u16string TipAround(const VBRCommand& record, std::u16string_view title, bool hasText,
                             std::u16string_view preview) const;
    std::u16string PlainTextOf(const VBRCommand& record) const;
    Lcid LayoutOf(const VBRCommand& record) const;

    Collaborators with_;
};

}  // namespace vbr
