// SPDX-License-Identifier: MIT
#include "base/xml_scan.h"

namespace vbr {
namespace {

constexpr std::string_view kCommentOpen = "<!--";
constexpr std::string_view kCommentClose = "-->";
constexpr std::string_view kDataOpen = "<![CDATA[";
constexpr std::string_view kDataClose = "]]>";

bool IsMark(std::string_view three) {
    return three == "\xEF\xBB\xBF" || three == "\xEF\xBF\xBE" || three == "\xEF\xBF\xBF";
}

}  // namespace

std::size_t BehindXml(std::string_view xml, std::string_view what, std::size_t from) {
    const std::size_t found = xml.find(what, from);
    return found == xml.npos ? xml.size() : found + what.size();
}

std::size_t SkipXmlBlanks(std::string_view xml, std::size_t from) {
    for (;;) {
        from = xml.find_first_not_of(kXmlWhiteSpace, from);
        if (from == xml.npos) {
            return xml.size();
        }
        if (!IsMark(xml.substr(from, 3))) {
            return from;
        }
        from += 3;
    }
}

std::size_t SkipXmlOpaque(std::string_view xml, std::size_t at) {
    const std::string_view rest = xml.substr(at);
    if (rest.starts_with(kCommentOpen)) {
        return BehindXml(xml, kCommentClose, at + kCommentOpen.size());
    }
    return rest.starts_with(kDataOpen) ? BehindXml(xml, kDataClose, at + kDataOpen.size()) : at;
}

bool BeginsXmlElement(std::string_view xml, std::size_t at) {
    const unsigned char first =
        at + 1 < xml.size() ? static_cast<unsigned char>(xml[at + 1]) : '\0';
    // Every byte that isn't ASCII may be a letter.
    return first == '_' || (first >= 'A' && first <= 'Z') || (first >= 'a' && first <= 'z') ||
           first >= 0x7F;
}

std::size_t SkipXmlTag(std::string_view xml, std::size_t at, std::size_t& attributes) {
    while ((at = xml.find_first_of("=\"'>", at)) != xml.npos && xml[at] != '>') {
        if (xml[at] == '=') {
            ++attributes;
            ++at;
        } else {
            at = BehindXml(xml, xml.substr(at, 1), at + 1);
        }
    }
    return at == xml.npos ? xml.size() : at + 1;
}

}  // namespace vbr
