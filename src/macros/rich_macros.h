// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "macros/macro_engine.h"
#include "platform/rich_text_engine.h"

namespace vbr {

// The plain text of a source, lines ending in CR LF; empty when the source can't be loaded.
std::u16string RichToPlainText(std::u16string_view source, RichTextEngine& engine);

// The macros in the visible text of Rich Text Format sources, replaced within the engine's
// document. Belongs to the main thread.
class RichMacros {
  public:
    RichMacros(const MacroEngine& macros, const KeyboardLayouts& layouts, const Locale& locale,
               RichTextEngine& engine)
        : macros_(macros), layouts_(layouts), locale_(locale), engine_(engine) {}

    // Expands in place; a value takes the colour of the character before its token. The count
    // includes the layout macros and the cursor's. The source stays as it is, and the outcome is
    // empty, when nothing was replaced or the engine fails.
    MacroOutcome ExpandMacrosRich(std::u16string& source, const MacroInput& input) const;

    // The language of the last layout macro in the source, in the order of the tokens, or 0.
    Lcid StripLayoutMacrosRich(std::u16string_view source) const;

  private:
    struct Removed {
        std::size_t Count = 0;
        Lcid Layout = 0;
    };
    Removed RemoveLayoutMacros() const;
    std::size_t ReplaceToken(std::u16string_view token,
                             const std::function<std::u16string()>& value) const;
    void ReplaceAt(std::size_t position, std::u16string_view token, std::u16string_view with) const;

    const MacroEngine& macros_;
    const KeyboardLayouts& layouts_;
    const Locale& locale_;
    RichTextEngine& engine_;
};

}  // namespace vbr
