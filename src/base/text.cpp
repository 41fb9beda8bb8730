// SPDX-License-Identifier: MIT
#include "base/text.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <iterator>
#include <limits>
#include <utf8.h>

#include "base/case_ranges.h"

namespace vbr {
namespace {

constexpr char16_t kReplacement = 0xFFFD;

std::u16string ReplaceLoneSurrogates(std::u16string_view text) {
    std::u16string out(text);
    for (std::size_t i = 0; i < out.size(); ++i) {
        if (IsHighSurrogate(out[i]) && i + 1 < out.size() && IsLowSurrogate(out[i + 1])) {
            ++i;
        } else if (IsHighSurrogate(out[i]) || IsLowSurrogate(out[i])) {
            out[i] = kReplacement;
        }
    }
    return out;
}

// For a text that doesn't grow; `found` is where the first occurrence stands.
std::size_t ReplaceInPlace(std::u16string& text, std::u16string_view what, std::u16string_view with,
                           std::size_t found) {
    std::size_t count = 0;
    std::size_t end = found;
    while (found != text.npos) {
        const std::size_t behind = found + what.size();
        found = FindText(text, what, behind);
        end += with.copy(text.data() + end, with.size());
        const std::size_t kept = std::min(found, text.size()) - behind;
        std::char_traits<char16_t>::move(text.data() + end, text.data() + behind, kept);
        end += kept;
        ++count;
    }
    text.resize(end);
    return count;
}

template <typename Char>
std::int64_t ParseDecimalOf(std::basic_string_view<Char> text) {
    constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
    std::size_t i = 0;
    while (i < text.size() && (text[i] == ' ' || (text[i] >= '\t' && text[i] <= '\r'))) {
        ++i;
    }
    bool negative = false;
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) {
        negative = text[i++] == '-';
    }
    std::int64_t value = 0;
    for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i) {
        const int digit = static_cast<int>(text[i] - '0');
        value = value > (kMax - digit) / 10 ? kMax : value * 10 + digit;
    }
    return negative ? -value : value;
}

}  // namespace

std::u16string Utf8ToUtf16(std::string_view text) {
    std::string valid;
    valid.reserve(text.size());
    utf8::replace_invalid(text.begin(), text.end(), std::back_inserter(valid), kReplacement);
    std::u16string out;
    out.reserve(valid.size());
    utf8::unchecked::utf8to16(valid.begin(), valid.end(), std::back_inserter(out));
    return out;
}

std::string Utf16ToUtf8(std::u16string_view text) {
    const std::u16string valid = ReplaceLoneSurrogates(text);
    std::string out;
    out.reserve(valid.size());
    utf8::unchecked::utf16to8(valid.begin(), valid.end(), std::back_inserter(out));
    return out;
}

bool IsValidUtf8(std::string_view text) {
    return utf8::is_valid(text.begin(), text.end());
}

bool IsValidUtf16(std::u16string_view text) {
    return ReplaceLoneSurrogates(text) == text;
}

std::u16string_view TrimLeft(std::u16string_view text, std::u16string_view chars) {
    const std::size_t first = text.find_first_not_of(chars);
    return first == text.npos ? std::u16string_view() : text.substr(first);
}

std::u16string_view TrimRight(std::u16string_view text, std::u16string_view chars) {
    const std::size_t last = text.find_last_not_of(chars);
    return last == text.npos ? std::u16string_view() : text.substr(0, last + 1);
}

std::u16string_view Trim(std::u16string_view text, std::u16string_view chars) {
    return TrimRight(TrimLeft(text, chars), chars);
}

std::u16string_view CutUnits(std::u16string_view text, std::size_t maxUnits) {
    if (text.size() <= maxUnits) {
        return text;
    }
    const bool halvesPair =
        maxUnits > 0 && IsHighSurrogate(text[maxUnits - 1]) && IsLowSurrogate(text[maxUnits]);
    return text.substr(0, halvesPair ? maxUnits - 1 : maxUnits);
}

std::size_t FindText(std::u16string_view text, std::u16string_view what, std::size_t from) {
    if (what.empty() || from >= text.size()) {
        return text.find(what, from);
    }
    // The library's search for a byte is far faster than any for a unit of two.
    const auto* bytes = reinterpret_cast<const char*>(text.data());
    const int low = what.front() & 0xFF;
    const std::size_t last = text.size() - std::min(what.size(), text.size());
    const std::size_t size = (last + 1) * sizeof(char16_t);
    for (std::size_t at = from * sizeof(char16_t); at < size; ++at) {
        const void* found = std::memchr(bytes + at, low, size - at);
        if (!found) {
            break;
        }
        at = static_cast<std::size_t>(static_cast<const char*>(found) - bytes);
        const std::size_t unit = at / sizeof(char16_t);
        // The last unit tells most often that it is something else.
        if (unit + what.size() <= text.size() && text[unit] == what.front() &&
            text[unit + what.size() - 1] == what.back() && text.substr(unit, what.size()) == what) {
            return unit;
        }
    }
    return text.npos;
}

std::size_t ReplaceAll(std::u16string& text, std::u16string_view what, std::u16string_view with) {
    std::size_t found = what.empty() ? text.npos : FindText(text, what);
    if (found == text.npos) {
        return 0;
    }
    if (with.size() <= what.size()) {
        return ReplaceInPlace(text, what, with, found);
    }
    std::u16string out;
    out.reserve(text.size() + with.size());
    std::size_t count = 0;
    std::size_t from = 0;
    for (; found != text.npos; found = FindText(text, what, from)) {
        out.append(text, from, found - from).append(with);
        from = found + what.size();
        ++count;
    }
    out.append(text, from);
    text = std::move(out);
    return count;
}

char16_t UpperChar(char16_t c) {
    if (c < 0x80) {
        return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - 0x20) : c;
    }
    const auto range =
        std::upper_bound(std::begin(kLowerRanges), std::end(kLowerRanges), c,
                         [](char16_t value, const LowerRange& r) { return value < r.First; });
    if (range == std::begin(kLowerRanges)) {
        return c;
    }
    const LowerRange& r = *std::prev(range);
    const bool inRange = c <= r.Last && (c - r.First) % r.Step == 0;
    return inRange ? static_cast<char16_t>(c + r.ToUpper) : c;
}

std::u16string ToUpper(std::u16string_view text) {
    std::u16string out(text);
    std::transform(out.begin(), out.end(), out.begin(), UpperChar);
    return out;
}

bool EqualsNoCase(std::u16string_view a, std::u16string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char16_t x, char16_t y) { return UpperChar(x) == UpperChar(y); });
}

bool StartsWithNoCase(std::u16string_view text, std::u16string_view prefix) {
    return text.size() >= prefix.size() && EqualsNoCase(text.substr(0, prefix.size()), prefix);
}

bool EndsWithNoCase(std::u16string_view text, std::u16string_view suffix) {
    return text.size() >= suffix.size() &&
           EqualsNoCase(text.substr(text.size() - suffix.size()), suffix);
}

std::size_t FindNoCase(std::u16string_view text, std::u16string_view what, std::size_t from) {
    if (from > text.size()) {
        return text.npos;
    }
    const auto found = std::search(
        text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), what.begin(), what.end(),
        [](char16_t x, char16_t y) { return UpperChar(x) == UpperChar(y); });
    return found == text.end() && !what.empty() ? text.npos
                                                : static_cast<std::size_t>(found - text.begin());
}

std::u16string ToDecimal(std::int64_t number) {
    char digits[24];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), number).ptr;
    return std::u16string(std::begin(digits), end);
}

std::int64_t ParseDecimal(std::string_view text) {
    return ParseDecimalOf(text);
}
std::int64_t ParseDecimal(std::u16string_view text) {
    return ParseDecimalOf(text);
}

}  // namespace vbr
