// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace vbr {

// The XML printer passes "&#x…" through unescaped, which would turn a text about character
// references into the characters. Marking takes these ampersands out of its sight; unmarking
// escapes them in what it printed.
std::string MarkReferences(std::string text);
std::string UnmarkReferences(const std::string& printed);

}  // namespace vbr
