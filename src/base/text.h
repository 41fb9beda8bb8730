// SPDX-License-Identifier: MIT
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace vbr {

// UTF-8 to UTF-16. A malformed sequence becomes U+FFFD; it never throws.
std::u16string Utf8ToUtf16(std::string_view text);

// UTF-16 to UTF-8. A lone surrogate becomes U+FFFD; it never throws.
std::string Utf16ToUtf8(std::u16string_view text);

bool IsValidUtf8(std::string_view text);
// Without lone surrogates. Of others no path can be made.
bool IsValidUtf16(std::u16string_view text);

// The text without any of the given characters at its start, end, or both.
std::u16string_view TrimLeft(std::u16string_view text, std::u16string_view chars);
std::u16string_view TrimRight(std::u16string_view text, std::u16string_view chars);
std::u16string_view Trim(std::u16string_view text, std::u16string_view chars);

// The first and the second half of a surrogate pair.
constexpr bool IsHighSurrogate(char16_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}
constexpr bool IsLowSurrogate(char16_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}

// At most `maxUnits` UTF-16 units from the start; a surrogate pair is never halved.
std::u16string_view CutUnits(std::u16string_view text, std::size_t maxUnits);

// Position of the first occurrence at or behind `from`, or npos; as the string's own search, and
// several times as fast where the first unit is rare.
std::size_t FindText(std::u16string_view text, std::u16string_view what, std::size_t from = 0);

// Replaces every occurrence from left to right, not looking into what was inserted; the count.
std::size_t ReplaceAll(std::u16string& text, std::u16string_view what, std::u16string_view with);

// Simple case mapping of Latin, Greek, Cyrillic and Armenian, the same in every locale.
char16_t UpperChar(char16_t c);
std::u16string ToUpper(std::u16string_view text);

bool EqualsNoCase(std::u16string_view a, std::u16string_view b);
bool StartsWithNoCase(std::u16string_view text, std::u16string_view prefix);
bool EndsWithNoCase(std::u16string_view text, std::u16string_view suffix);

// Position of the first occurrence at or behind `from`, or npos.
std::size_t FindNoCase(std::u16string_view text, std::u16string_view what, std::size_t from = 0);

std::u16string ToDecimal(std::int64_t number);

// Reads blanks, a sign and decimal digits from the start, as atoi does; 0 when there are none.
// A number beyond 64 bits is clamped.
std::int64_t ParseDecimal(std::string_view text);
std::int64_t ParseDecimal(std::u16string_view text);

namespace detail {
inline std::size_t SpaceFor(std::u16string_view piece) {
    return piece.size();
}
inline std::size_t SpaceFor(std::integral auto) {
    return 20;  // digits and sign of any 64-bit number
}
inline void Append(std::u16string& out, std::u16string_view piece) {
    out += piece;
}
inline void Append(std::u16string& out, std::integral auto number) {
    out += ToDecimal(static_cast<std::int64_t>(number));
}
}  // namespace detail

// Joins texts and whole numbers (in decimal) into one text.
template <typename... Pieces>
std::u16string Concat(const Pieces&... pieces) {
    std::u16string out;
    out.reserve((detail::SpaceFor(pieces) + ...));
    (detail::Append(out, pieces), ...);
    return out;
}

}  // namespace vbr
