// SPDX-License-Identifier: MIT
#include "history/source_url.h"

#include "base/text.h"

namespace vbr {
namespace {

constexpr std::string_view kSourceUrl = "SourceURL:";
constexpr std::u16string_view kBlanks = u" \n\t\r";
constexpr std::u16string_view kLineEnds = u"\n\r";
constexpr std::size_t kShortest = 7;

std::u16string_view UpTo(std::u16string_view text, std::u16string_view ends) {
    return text.substr(0, text.find_first_of(ends));
}

bool IsLetter(char16_t unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}

bool HasDrive(std::u16string_view path) {
    return path.size() > 2 && IsLetter(path[0]) && path[1] == u':';
}

}  // namespace

std::u16string SourceUrlOfHtml(std::string_view block) {
    const std::size_t at = block.find(kSourceUrl);
    if (at == block.npos) {
        return {};
    }
    const std::string_view rest = block.substr(at + kSourceUrl.size());
    const std::size_t end = rest.find_first_of("\r\n");
    return end == rest.npos ? std::u16string() : Utf8ToUtf16(rest.substr(0, end));
}

std::u16string TextAsUrl(std::u16string_view text) {
    text = TrimLeft(text, kBlanks);
    if (text.size() < kShortest) {
        return {};
    }
    for (const std::u16string_view prefix : {u"http://", u"https://"}) {
        if (text.size() > prefix.size() && text.starts_with(prefix)) {
            return std::u16string(UpTo(text, kBlanks));
        }
    }
    if (!HasDrive(text)) {
        return {};
    }
    for (const std::u16string_view ends : {kLineEnds, kBlanks}) {
        const std::u16string_view path = UpTo(text, ends);
        if (path.find_first_of(u"\\/", 2) != path.npos) {
            return std::u16string(path);
        }
    }
    return {};
}

}  // namespace vbr
