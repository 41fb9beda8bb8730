// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "macros/macro_engine.h"
#include "macros/rich_plain_texts.h"
#include "phrases/command_record.h"
#include "platform/locale.h"
#include "platform/log.h"
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
    Lcid Layout = 0;  // the language of the keyboard layout that the phrase asks for, or 0
};

// The texts that explain a phrase before it is used: previews through the macros. A formatted
// phrase shows its plain text. Belongs to the main thread.
class PhraseTexts {
  public:
    struct Collaborators {
        const MacroEngine& Macros;
        RichTextEngine& Engine;
        const vbr::Locale& Locale;
        const Strings& Texts;
        vbr::Log& Log;
    };

    explicit PhraseTexts(const Collaborators& with) : with_(with), rich_(with.Engine, with.Log) {}

    // All that the menu shows of a phrase, which is expanded once for it.
    PhraseMenuTexts BuildMenuTexts(const VBRCommand& record, const MacroInput& input) const;

    // The text of the phrase's menu item, on one line. `outCursorIndex` is the place of the cursor
    // mark in it, or -1 when the caption tells nothing of that place.
    std::u16string BuildMenuCaption(const VBRCommand& record, const MacroInput& input,
                                    std::int32_t& outCursorIndex) const;

    // The tip of the phrase's menu item. `outPreview`, if not null, gets the expanded text.
    std::u16string BuildMenuTip(const VBRCommand& record, std::u16string_view title,
                                const MacroInput& input, std::u16string* outPreview) const;

    // Two letters for a keyboard layout that a phrase asks for, or nothing for 0.
    std::u16string LayoutBadge(Lcid layout) const;

    // The units that the phrase gives without selection and clipboard, in the user's language.
    std::size_t ExpandedLength(const VBRCommand& record) const;

  private:
    struct Expansion {
        std::u16string Text;
        MacroOutcome Outcome;
        bool HadText = false;      // before its macros were replaced
        bool NamesCursor = false;  // by a mark of its own
    };

    Expansion Expand(const VBRCommand& record, const MacroInput& input) const;
    std::u16string CaptionOf(const VBRCommand& record, const MacroInput& input,
                             const Expansion& expansion, std::int32_t& outCursorIndex) const;
    // Both move the place of the cursor mark to its place in the line, if it has one.
    static std::u16string TextLine(const VBRCommand& record, const Expansion& expansion,
                                   std::optional<std::size_t>& place);
    static std::u16string TitleLine(const VBRCommand& record, std::u16string_view title,
                                    const Expansion& expansion, std::optional<std::size_t>& place);
    std::u16string TipOf(const VBRCommand& record, std::u16string_view title,
                         const MacroInput& input, Expansion& expansion) const;
    void FinishPreview(std::u16string& text, const MacroInput& input) const;
    const std::u16string& ShownText(const VBRCommand& record) const;

    Collaborators with_;
    mutable RichPlainTexts rich_;
};

}  // namespace vbr
