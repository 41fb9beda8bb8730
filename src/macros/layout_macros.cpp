// SPDX-License-Identifier: MIT
#include "macros/layout_macros.h"

#include <algorithm>

#include "base/text.h"
#include "macros/macro_tokens.h"

namespace vbr {
namespace {

constexpr std::size_t kBadgeLength = 2;

}  // namespace

std::map<std::u16string, Lcid> InstalledLayoutMacros(const KeyboardLayouts& layouts,
                                                     const Locale& locale) {
    std::map<std::u16string, Lcid> macros;
    for (const Lcid language : layouts.InstalledLanguages()) {
        const std::u16string name = locale.Upper(locale.Iso639Name(language));
        if (!name.empty()) {
            macros[Concat(kMacroLayoutPrefix, name, kMacroLayoutSuffix)] = language;
        }
    }
    return macros;
}

Lcid StripLayoutMacros(std::u16string& text, const KeyboardLayouts& layouts, const Locale& locale) {
    if (FindText(text, kMacroLayoutPrefix) == text.npos) {
        return 0;
    }
    Lcid last = 0;
    for (const auto& [token, language] : InstalledLayoutMacros(layouts, locale)) {
        if (ReplaceAll(text, token, u"") > 0) {
            last = language;
        }
    }
    return last;
}

std::u16string LayoutBadge(std::u16string_view text, const KeyboardLayouts& layouts,
                           const Locale& locale) {
    if (FindText(text, kMacroLayoutPrefix) == text.npos) {
        return {};
    }
    const std::map<std::u16string, Lcid> macros = InstalledLayoutMacros(layouts, locale);
    const auto last = std::find_if(macros.rbegin(), macros.rend(), [text](const auto& macro) {
        return FindText(text, macro.first) != text.npos;
    });
    return last == macros.rend()
               ? std::u16string()
               : locale.LanguageAbbreviation(last->second).substr(0, kBadgeLength);
}

}  // namespace vbr
