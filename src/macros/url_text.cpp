// SPDX-License-Identifier: MIT
#include "macros/url_text.h"

#include "base/text.h"
#include "macros/macro_tokens.h"

namespace vbr {

std::u16string ExtractUrl(std::u16string_view text, bool wantUrl) {
    const std::u16string_view trimmed = TrimLeft(text, u" \r\n\t");
    for (const std::u16string_view protocol : {u"http://", u"https://", u"ftp://"}) {
        if (protocol.size() >= text.size() || !StartsWithNoCase(trimmed, protocol)) {
            continue;
        }
        const std::size_t end = trimmed.find_first_of(u" \t\r\n", protocol.size());
        const std::u16string_view url = trimmed.substr(0, end);
        return std::u16string(wantUrl ? url : trimmed.substr(url.size()));
    }
    return wantUrl ? std::u16string() : std::u16string(trimmed);
}

std::u16string TrimProtocols(std::u16string_view text) {
    for (const std::u16string_view protocol : {u"http://", u"https://", u"file://", u"ftp://"}) {
        while (StartsWithNoCase(text, protocol)) {
            text.remove_prefix(protocol.size());
        }
    }
    std::u16string out(text);
    ReplaceAll(out, kMacroTrimProtocols, u"");
    return out;
}

}  // namespace vbr
