// SPDX-License-Identifier: MIT
#include "macros/command_address.h"

#include <algorithm>
#include <iterator>

#include "base/text.h"

namespace vbr {
namespace {

constexpr std::u16string_view kShellScheme = u"shell:";
constexpr std::u16string_view kHostMark = u"://";
constexpr std::u16string_view kBlanks = u" \t";
constexpr char16_t kFirstNonAscii = 0x80;

// Characters that stay, beside letters and digits.
constexpr std::u16string_view kInQuery = u"-._~";
constexpr std::u16string_view kInPath = u"-._~!$&'()*+,;=:@/";
constexpr std::u16string_view kInAddress = u"-._~!$&'()*+,;=:@/?#[]";

bool IsLetter(char16_t c) {
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}

bool IsDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

bool IsHex(char16_t c) {
    return IsDigit(c) || (c >= u'A' && c <= u'F') || (c >= u'a' && c <= u'f');
}

bool IsEscape(std::u16string_view text) {
    return text.size() >= 3 && text[0] == u'%' && IsHex(text[1]) && IsHex(text[2]);
}

// Whether the unit at the text's start may stand in an address where `kept` may.
bool Stays(std::u16string_view text, std::u16string_view kept) {
    const char16_t c = text.front();
    const bool isAddress = kept == kInAddress;
    return IsLetter(c) || IsDigit(c) || kept.find(c) != kept.npos ||
           (isAddress && (c >= kFirstNonAscii || IsEscape(text)));
}

void AppendEncoded(std::u16string& out, std::u16string_view text) {
    constexpr std::u16string_view kDigits = u"0123456789ABCDEF";
    for (const char byte : Utf16ToUtf8(text)) {
        const auto value = static_cast<unsigned char>(byte);
        out += {u'%', kDigits[value >> 4], kDigits[value & 15]};
    }
}

void AppendValue(std::u16string& out, std::u16string value, std::u16string_view kept) {
    if (kept == kInAddress) {
        std::replace(value.begin(), value.end(), u'\\', u'/');
    }
    const std::u16string_view text = value;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = at;
        while (end < text.size() && !Stays(text.substr(end), kept)) {
            ++end;
        }
        AppendEncoded(out, text.substr(at, end - at));
        if (end < text.size()) {
            out += text[end++];
        }
        at = end;
    }
}

bool IsWebAddress(std::u16string_view text) {
    return StartsWithNoCase(text, u"http://") || StartsWithNoCase(text, u"https://") ||
           StartsWithNoCase(text, u"ftp://");
}

// What a value may hold that follows this part of an address.
std::u16string_view KeptBehind(std::u16string_view address, bool inQuery,
                               std::u16string_view value) {
    if (inQuery) {
        return kInQuery;
    }
    return address.empty() || address.ends_with(kHostMark) || IsWebAddress(value) ? kInAddress
                                                                                  : kInPath;
}

}  // namespace

bool IsAddress(std::u16string_view text) {
    if (StartsWithNoCase(text, u"www.")) {
        return true;
    }
    const auto isPart = [](char16_t c) {
        return IsLetter(c) || IsDigit(c) || c == u'+' || c == u'-' || c == u'.';
    };
    const auto colon = std::find_if_not(text.begin(), text.end(), isPart);
    const auto length = static_cast<std::size_t>(colon - text.begin());
    return length > 1 && IsLetter(text[0]) && length + 1 < text.size() && text[length] == u':' &&
           kBlanks.find(text[length + 1]) == kBlanks.npos;
}

std::u16string AddressText(const CommandText& address) {
    const std::u16string_view text = address.Text();
    const bool isShell = StartsWithNoCase(text, kShellScheme);  // its names hold blanks
    std::u16string out;
    bool inQuery = false;
    for (std::size_t at = 0; at < text.size();) {
        const bool isValue = address.IsValue(at);
        const std::size_t end = isValue ? address.FindWritten(at) : address.FindValue(at);
        const std::u16string_view part = text.substr(at, end - at);
        const std::size_t start = out.size();
        if (!isValue) {
            out += part;
        } else if (isShell) {
            std::copy_if(part.begin(), part.end(), std::back_inserter(out),
                         [](char16_t c) { return c != u'"'; });
        } else {
            const std::u16string_view value = Trim(part, kBlanks);
            AppendValue(out, std::u16string(value), KeptBehind(out, inQuery, value));
        }
        inQuery = inQuery || out.find_first_of(u"?#", start) != out.npos;
        at = end;
    }
    return out;
}

}  // namespace vbr
