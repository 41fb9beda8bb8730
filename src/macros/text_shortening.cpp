// SPDX-License-Identifier: MIT
#include "macros/text_shortening.h"

#include "base/text.h"

namespace vbr {

std::u16string ShortenTitle(std::u16string_view text, int limit) {
    std::u16string title(Trim(text, u" \t\r\n\v\b"));
    const std::size_t lineEnd = title.find_first_of(u"\t\r\n\v\b", 2);
    title = title.substr(0, lineEnd);
    if (limit != kNoLimit && title.size() > static_cast<std::size_t>(limit)) {
        title = Concat(CutUnits(title, static_cast<std::size_t>(limit)), u"…");
    }
    for (const std::u16string_view what :
         {u"\r\n", u"\n", u"\r", u"\t", u"\r\r", u"\v", u"\b", u"\v\b"}) {
        ReplaceAll(title, what, u" ");
    }
    return title;
}

}  // namespace vbr
