// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vbr {

// Groups within groups that a rich text source may have. A control of Windows' make that keeps no
// more open groups than these writes behind its memory when it meets one more.
inline constexpr std::size_t kMaxRichGroupDepth = 32;

// The 8-bit Rich Text Format of a source held in UTF-16. A unit up to 255 is a byte in the source's
// own code page. A unit above that becomes the escape \uN, so nothing is lost. A source that begins
// with "{\urtf" is Unicode by itself: units above 127 become escapes, and the prefix "{\rtf".
std::string ToRichBytes(std::u16string_view source);

// The same for other programs: a byte above 127 becomes the escape \'xx, which is as much in the
// source's own code page, unless the source has data or characters of several bytes.
std::string ToAsciiRich(std::u16string_view source);

// Whether the source ends in the mark of a paragraph, and the source without that mark. A control
// takes it for its own end of the text when it loads the source, and for one more line when it
// pastes it.
bool EndsInParagraph(std::u16string_view source);
std::u16string WithoutLastParagraph(std::u16string_view source);

// The deepest nesting of groups in 8-bit Rich Text Format, rather too deep than not deep enough.
std::size_t RichGroupDepth(std::string_view bytes);

// Bytes of text and format, pictures' digits not counted, that a control lays out in seconds.
inline constexpr std::size_t kMaxRichText = 6U << 20;

// The bytes that are no picture: all but long runs of hexadecimal digits.
std::size_t RichTextSize(std::string_view bytes);

// Whether a control may be given these bytes: they begin as the format does and don't nest too
// deep.
bool IsSafeRich(std::string_view bytes);

}  // namespace vbr
