// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

// How the XML library finds its way through a document that it accepts. Positions count from the
// document's start.
namespace vbr {

inline constexpr std::string_view kXmlWhiteSpace = " \t\r\n\v\f";
// A text of nothing else is none to the library: white space, and what it skips like that.
inline constexpr std::u16string_view kXmlBlankText = u" \t\r\n\v\f\uFEFF\uFFFE\uFFFF";

// The position behind the next `what`, or the text's end.
std::size_t BehindXml(std::string_view xml, std::string_view what, std::size_t from);

// The first position at or behind `from` that holds no white space, or the text's end. Byte order
// marks and their like count as white space.
std::size_t SkipXmlBlanks(std::string_view xml, std::size_t from);

// The position behind the comment or character data that begins there; `at` for anything else.
std::size_t SkipXmlOpaque(std::string_view xml, std::size_t at);

// Whether an element begins with the '<' at that place.
bool BeginsXmlElement(std::string_view xml, std::size_t at);

// The position behind the '>' of the start tag around `at`, counting what may be attributes.
std::size_t SkipXmlTag(std::string_view xml, std::size_t at, std::size_t& attributes);

}  // namespace vbr
