// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "macros/macro_values.h"
#include "platform/keyboard_layouts.h"
#include "platform/locale.h"
#include "platform/log.h"

namespace vbr {

// What an expansion found out beside the text.
struct MacroOutcome {
    std::size_t Replaced = 0;  // occurrences, without those of the layout and cursor macros
    std::optional<std::size_t> CursorBack;  // cursor steps from the end back to %CURSOR_POS%
    Lcid Layout = 0;                        // the layout language asked for, or 0
    std::optional<std::size_t> CursorAt;    // where the first %CURSOR_POS% stood in the text
};

// Replaces the macros of a text. Tokens are replaced in ascending order, each over the whole text,
// so a value may bring in tokens that sort behind its own. A value is worked out only for a token
// that the text holds when its turn comes. Belongs to the main thread.
class MacroEngine {
  public:
    MacroEngine(const MacroValues& values, const KeyboardLayouts& layouts, const Locale& locale,
                Log& log)
        : values_(values), layouts_(layouts), locale_(locale), log_(log) {}

    // All tokens, ascending: the fixed ones and one for each layout installed at the first call.
    const std::vector<std::u16string>& GetMacroList() const;

    std::u16string MacroValue(std::u16string_view macro, const MacroInput& input) const {
        return values_.MacroValue(macro, input);
    }

    // Expands in place. A token that isn't known stays as it stands.
    MacroOutcome ExpandMacros(std::u16string& text, const MacroInput& input) const;

    // The expansion without selection and clipboard, in the user's language.
    MacroOutcome ExpandMacrosPlain(std::u16string& text) const;

    // Removes the layout macros; the language of the last one in token order, or 0.
    Lcid StripLayoutMacros(std::u16string& text) const;

  private:
    // Positions in the list, from `from` on, of the tokens that stand in the text, ascending.
    std::vector<std::size_t> TokensIn(std::u16string_view text, std::size_t from) const;
    std::size_t ReplaceTokens(std::u16string& text, const MacroInput& input,
                              std::vector<std::size_t> waiting) const;

    const MacroValues& values_;
    const KeyboardLayouts& layouts_;
    const Locale& locale_;
    Log& log_;
    mutable std::vector<std::u16string> list_;
    mutable std::unordered_map<std::u16string_view, std::size_t> positions_;  // in the list
};

}  // namespace vbr
