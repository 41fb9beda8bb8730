// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <tinyxml.h>

namespace vbr {

// The text as it stands in a printed document, between tags.
std::string EscapeXmlText(std::u16string_view text);

// The text behind what the element has. Only texts given in this way are printed as they are: the
// library passes "&#x…" through, which turns a text about character references into the characters.
void AppendXmlText(TiXmlElement& element, std::u16string_view text);
// A new last element with that text.
void AppendXmlElement(TiXmlElement& parent, const char* name, std::u16string_view text);

// The document as files and outside programs get it: UTF-8, four blanks a level, lines ending in
// CR LF. Empty when the library can't print it.
std::string PrintXml(const TiXmlDeclaration& declaration, const TiXmlElement& root);

}  // namespace vbr
