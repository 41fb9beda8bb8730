// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace vbr {

// Tokens that code treats by themselves; the whole list stands in macro_values.cpp.
inline constexpr std::u16string_view kMacroClipboardText = u"%CLIPBOARD_TEXT%";
inline constexpr std::u16string_view kMacroSelectedText = u"%SELECTED_TEXT%";
inline constexpr std::u16string_view kMacroCursorPos = u"%CURSOR_POS%";
inline constexpr std::u16string_view kMacroUrlFromClipboard = u"%URL_FROM_CLIPBOARD%";
inline constexpr std::u16string_view kMacroTrimProtocols = u"%TRIM_LEFT_ALLPROTS_FROM_SELTEXT%";

// A layout token is the prefix, the language's ISO 639 name in capitals, and the suffix.
inline constexpr std::u16string_view kMacroLayoutPrefix = u"%ACTIVATE_KL_";
inline constexpr std::u16string_view kMacroLayoutSuffix = u"%";

// The macro with an argument, recognised in any letter case.
inline constexpr std::u16string_view kPromptOpen = u"%PROMPT_TEXT={";
inline constexpr std::u16string_view kPromptClose = u"}%";

}  // namespace vbr
