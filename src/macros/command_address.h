// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "macros/command_text.h"

namespace vbr {

// Whether the text begins with the scheme of an address ("https:", "mailto:", "shell:"), which a
// drive is not, or with "www.".
bool IsAddress(std::u16string_view text);

// The address with its values as parts of it: whole addresses and hosts keep their meaning, in a
// path what would end it is percent-encoded, behind "?" or "#" all but plain characters.
std::u16string AddressText(const CommandText& address);

}  // namespace vbr
