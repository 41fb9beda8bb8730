// SPDX-License-Identifier: MIT
#include "platform/rich_source.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "base/text.h"

namespace vbr {
namespace {

constexpr std::u16string_view kUnicodePrefix = u"{\\urtf";
constexpr std::string_view kPrefix = "{\\rtf";
constexpr char16_t kLastAscii = 0x7F;
constexpr char16_t kLastByte = 0xFF;
constexpr std::u16string_view kParagraphMark = u"\\par";
constexpr std::u16string_view kBetweenMarks(u" \r\n\0", 4);

// Where the paragraph mark stands that only the closing brace follows, or npos.
std::size_t LastParagraphMark(std::u16string_view source) {
    std::u16string_view rest = TrimRight(source, kBetweenMarks);
    if (!rest.ends_with(u'}')) {
        return source.npos;
    }
    rest = TrimRight(rest.substr(0, rest.size() - 1), kBetweenMarks);
    const bool ends = rest.ends_with(kParagraphMark) && !rest.ends_with(u"\\\\par");
    return ends ? rest.size() - kParagraphMark.size() : source.npos;
}

// No word of a text, nor a number in its format, is that long.
constexpr std::size_t kPictureDigits = 64;

// Pictures have their digits in lines.
bool MayBePicture(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F') ||
           c == '\r' || c == '\n';
}

constexpr std::string_view kHexDigits = "0123456789abcdef";

// Whether bytes of the source may be more than characters of one byte: data, or code pages of two
// bytes, whose second one may be ASCII.
bool HasWideBytes(std::u16string_view source) {
    constexpr std::u16string_view kSigns[] = {u"\\bin", u"\\ansicpg9", u"\\ansicpg1361",
                                              u"\\fcharset12", u"\\fcharset13"};
    return std::any_of(std::begin(kSigns), std::end(kSigns), [source](std::u16string_view sign) {
        return FindText(source, sign) != source.npos;
    });
}

// No control word begins with what comes, and the backslash would take the escape's own.
void DropBackslash(std::string& bytes, bool& isLast) {
    if (isLast) {
        bytes.pop_back();
        isLast = false;
    }
}

// Units up to 255 stay bytes, those above 127 as escapes if that is wanted. In a source that is
// Unicode by itself only ASCII stays.
std::string ToBytes(std::u16string_view source, bool escapesBytes) {
    std::string bytes;
    bytes.reserve(source.size());
    char16_t lastByte = kLastByte;
    if (StartsWithNoCase(source, kUnicodePrefix)) {
        lastByte = kLastAscii;
        bytes = kPrefix;
        source.remove_prefix(kUnicodePrefix.size());
    }
    bool behindBackslash = false;
    bool inEscapes = false;
    for (const char16_t unit : source) {
        if (unit <= lastByte) {
            if (inEscapes) {
                bytes += '}';
                inEscapes = false;
            }
            if (unit > kLastAscii && escapesBytes) {
                DropBackslash(bytes, behindBackslash);
                bytes += {'\\', '\'', kHexDigits[unit >> 4], kHexDigits[unit & 0xF]};
                continue;
            }
            bytes += static_cast<char>(unit);
            behindBackslash = unit == u'\\' && !behindBackslash;
            continue;
        }
        DropBackslash(bytes, behindBackslash);
        if (!inEscapes) {
            // Within a group of its own \uc1 leaves the source's own escapes as they are.
            bytes += "{\\uc1";
            inEscapes = true;
        }
        bytes += "\\u" + std::to_string(static_cast<std::int16_t>(unit)) + '?';
    }
    if (inEscapes) {
        bytes += '}';
    }
    return bytes;
}

}  // namespace

std::string ToRichBytes(std::u16string_view source) {
    return ToBytes(source, false);
}

std::string ToAsciiRich(std::u16string_view source) {
    return ToBytes(source, !HasWideBytes(source));
}

bool EndsInParagraph(std::u16string_view source) {
    return LastParagraphMark(source) != source.npos;
}

std::u16string WithoutLastParagraph(std::u16string_view source) {
    const std::size_t mark = LastParagraphMark(source);
    std::u16string out(source);
    if (mark != source.npos) {
        out.erase(mark, kParagraphMark.size());
    }
    return out;
}

std::size_t RichGroupDepth(std::string_view bytes) {
    std::size_t depth = 0;
    std::size_t deepest = 0;
    std::size_t ignoredClosers = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const char c = bytes[i];
        if (c == '\\') {
            ++i;
            if (i < bytes.size() && bytes[i] == '\'') {
                // Some readers take any two characters behind \' for hexadecimal digits.
                ignoredClosers = 2;
                continue;
            }
        } else if (c == '{') {
            deepest = std::max(deepest, ++depth);
        } else if (c == '}' && ignoredClosers == 0 && depth > 0) {
            --depth;
        }
        ignoredClosers -= std::min<std::size_t>(ignoredClosers, 1);
    }
    return deepest;
}

std::size_t RichTextSize(std::string_view bytes) {
    std::size_t size = bytes.size();
    for (std::size_t begin = 0; begin < bytes.size();) {
        const auto* const end = std::find_if_not(bytes.begin() + begin, bytes.end(), MayBePicture);
        const auto run = static_cast<std::size_t>(end - bytes.begin()) - begin;
        size -= run >= kPictureDigits ? run : 0;
        begin += run + 1;
    }
    return size;
}

bool IsSafeRich(std::string_view bytes) {
    return bytes.starts_with(kPrefix) && RichGroupDepth(bytes) <= kMaxRichGroupDepth;
}

}  // namespace vbr
