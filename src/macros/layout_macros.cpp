// SPDX-License-Identifier: MIT
#include "macros/layout_macros.h"

#include "base/text.h"
#include "macros/macro_tokens.h"

namespace vbr {

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

}  // namespace vbr
