// SPDX-License-Identifier: MIT
#include "base/xml_guard.h"

#include <algorithm>

namespace vbr {
namespace {

constexpr std::string_view kCommentOpen = "<!--";
constexpr std::string_view kCommentClose = "-->";
constexpr std::string_view kDataOpen = "<![CDATA[";
constexpr std::string_view kDataClose = "]]>";
constexpr std::string_view kWhiteSpace = " \t\r\n\v\f";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool IsHexDigit(char c) {
    return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

// As the library has it: every byte that isn't ASCII may be a letter.
bool StartsName(char c) {
    return c == '_' || IsLetter(c) || static_cast<unsigned char>(c) >= 0x7F;
}

// The position behind the next `what`, or the text's end.
std::size_t Behind(std::string_view xml, std::string_view what, std::size_t from) {
    const std::size_t found = xml.find(what, from);
    return found == xml.npos ? xml.size() : found + what.size();
}

// The position behind the comment or character data that begins there; `at` for anything else.
std::size_t SkipOpaque(std::string_view xml, std::size_t at) {
    const std::string_view rest = xml.substr(at);
    if (rest.starts_with(kCommentOpen)) {
        return Behind(xml, kCommentClose, at + kCommentOpen.size());
    }
    return rest.starts_with(kDataOpen) ? Behind(xml, kDataClose, at + kDataOpen.size()) : at;
}

bool IsDeclaration(std::string_view rest) {
    return rest.starts_with("<?") && rest.size() >= 5 && (rest[2] | 0x20) == 'x' &&
           (rest[3] | 0x20) == 'm' && (rest[4] | 0x20) == 'l';
}

// The position behind the tag's '>', counting what may be attributes.
std::size_t SkipTag(std::string_view xml, std::size_t at, std::size_t& attributes) {
    while ((at = xml.find_first_of("=\"'>", at)) != xml.npos && xml[at] != '>') {
        if (xml[at] == '=') {
            ++attributes;
            ++at;
        } else {
            at = Behind(xml, xml.substr(at, 1), at + 1);
        }
    }
    return at == xml.npos ? xml.size() : at + 1;
}

bool BeginsReference(std::string_view rest) {
    for (const std::string_view entity : {"&amp;", "&lt;", "&gt;", "&quot;", "&apos;"}) {
        if (rest.starts_with(entity)) {
            return true;
        }
    }
    if (!rest.starts_with("&#")) {
        return false;
    }
    const bool hexadecimal = rest.starts_with("&#x");
    const std::string_view digits = rest.substr(hexadecimal ? 3 : 2);
    const auto end =
        std::find_if_not(digits.begin(), digits.end(), hexadecimal ? IsHexDigit : IsDigit);
    return end != digits.begin() && end != digits.end() && *end == ';';
}

}  // namespace

std::string_view SkipXmlDeclarations(std::string_view xml) {
    for (;;) {
        const std::size_t at = xml.find_first_not_of(kWhiteSpace);
        const std::string_view rest = at == xml.npos ? std::string_view() : xml.substr(at);
        if (rest.starts_with(kByteOrderMark)) {
            xml = rest.substr(kByteOrderMark.size());
        } else if (IsDeclaration(rest)) {
            xml = rest.substr(Behind(rest, ">", 0));
        } else {
            return at == xml.npos ? xml.substr(xml.size()) : rest;
        }
    }
}

bool IsWithinXmlLimits(std::string_view xml) {
    std::size_t depth = 0;
    std::size_t elements = 0;
    std::size_t attributes = 0;
    for (std::size_t at = xml.find('<'); at != xml.npos; at = xml.find('<', at)) {
        const std::size_t behind = SkipOpaque(xml, at);
        if (behind != at) {
            at = behind;
            continue;
        }
        if (IsDeclaration(xml.substr(at))) {
            return false;
        }
        const char first = at + 1 < xml.size() ? xml[at + 1] : '\0';
        if (!StartsName(first)) {
            depth -= first == '/' && depth > 0 ? 1 : 0;
            at = Behind(xml, ">", at);
            continue;
        }
        at = SkipTag(xml, at, attributes);
        depth += xml.substr(0, at).ends_with("/>") ? 0 : 1;
        ++elements;
        if (depth > kXmlMaxDepth || elements > kXmlMaxElements || attributes > kXmlMaxAttributes) {
            return false;
        }
    }
    return true;
}

bool HasStrayAmpersand(std::string_view xml) {
    std::size_t at = xml.find('&');
    while (at != xml.npos && BeginsReference(xml.substr(at))) {
        at = xml.find('&', at + 1);
    }
    return at != xml.npos;
}

std::string EscapeStrayAmpersands(std::string_view xml) {
    std::string out;
    out.reserve(xml.size());
    std::size_t copied = 0;
    for (std::size_t at = xml.find_first_of("&<"); at != xml.npos;
         at = xml.find_first_of("&<", at)) {
        const std::size_t behind = SkipOpaque(xml, at);
        if (behind != at) {
            at = behind;
            continue;
        }
        if (xml[at] == '&' && !BeginsReference(xml.substr(at))) {
            out.append(xml, copied, at - copied).append("&amp;");
            copied = at + 1;
        }
        ++at;
    }
    return out.append(xml, copied);
}

}  // namespace vbr
