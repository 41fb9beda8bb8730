// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace vbr {

// What is far above any phrase file and still harmless to the XML library, which recurses for each
// level and looks an attribute's name up among all before it.
inline constexpr std::size_t kXmlMaxDepth = 100;
inline constexpr std::size_t kXmlMaxElements = 10000;
inline constexpr std::size_t kXmlMaxAttributes = 1000;

// Has the library keep all white space, for good. Any thread may call.
void KeepXmlWhiteSpace();

// The document behind its declarations, which the library reads by rules of its own.
std::string_view SkipXmlDeclarations(std::string_view xml);

// Whether the library can parse a document without declarations within these limits. Linear, and
// never too generous for a text that the library would follow.
bool IsWithinXmlLimits(std::string_view xml);

// Whether an ampersand begins no reference; those in comments and character data count too.
bool HasStrayAmpersand(std::string_view xml);

// Writes "&amp;" for each ampersand that begins no reference. The library would drop it, and a
// title like "Tom & Jerry" would come back without it.
std::string EscapeStrayAmpersands(std::string_view xml);

}  // namespace vbr
