// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace vbr {

// The English text of a string id; empty when there is none. A two-line text of a command holds
// its tip, a line feed, and its short title.
std::u16string_view EmbeddedString(int id);

}  // namespace vbr
