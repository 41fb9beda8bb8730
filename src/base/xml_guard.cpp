// SPDX-License-Identifier: MIT
#include "base/xml_guard.h"

#include <algorithm>
#include <tinyxml.h>

#include "base/xml_scan.h"

namespace vbr {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool IsHexDigit(char c) {
    return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

bool IsDeclaration(std::string_view rest) {
    return rest.starts_with("<?") && rest.size() >= 5 && (rest[2] | 0x20) == 'x' &&
           (rest[3] | 0x20) == 'm' && (rest[4] | 0x20) == 'l';
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

void KeepXmlWhiteSpace() {
    // Once only, since another thread may be parsing.
    [[maybe_unused]] static const bool kept = [] {
        TiXmlBase::SetCondenseWhiteSpace(false);
        return true;
    }();
}

std::string_view SkipXmlDeclarations(std::string_view xml) {
    for (;;) {
        const std::size_t at = xml.find_first_not_of(kXmlWhiteSpace);
        const std::string_view rest = at == xml.npos ? std::string_view() : xml.substr(at);
        if (rest.starts_with(kByteOrderMark)) {
            xml = rest.substr(kByteOrderMark.size());
        } else if (IsDeclaration(rest)) {
            xml = rest.substr(BehindXml(rest, ">", 0));
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
        const std::size_t behind = SkipXmlOpaque(xml, at);
        if (behind != at) {
            at = behind;
            continue;
        }
        if (IsDeclaration(xml.substr(at))) {
            return false;
        }
        if (!BeginsXmlElement(xml, at)) {
            depth -= xml.substr(at).starts_with("</") && depth > 0 ? 1 : 0;
            at = BehindXml(xml, ">", at);
            continue;
        }
        at = SkipXmlTag(xml, at, attributes);
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
    std::size_t tagEnd = 0;  // what looks like a comment before it is an attribute's value
    std::size_t attributes = 0;
    for (std::size_t at = xml.find_first_of("&<"); at != xml.npos;
         at = xml.find_first_of("&<", at)) {
        if (xml[at] == '<' && at >= tagEnd) {
            const std::size_t behind = SkipXmlOpaque(xml, at);
            if (BeginsXmlElement(xml, at)) {
                tagEnd = SkipXmlTag(xml, at, attributes);
                ++at;
            } else {
                at = behind != at ? behind : BehindXml(xml, ">", at);
            }
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
