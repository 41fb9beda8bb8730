// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace vbr {

// How often a cursor key is pressed to pass the text. One step is what a reader takes for one
// character: a surrogate pair, a letter with its marks, an emoji with all that is joined to it, the
// two letters of a flag. A CR LF is one step, and a line feed by itself is none.
std::size_t CursorSteps(std::u16string_view text);

}  // namespace vbr
