// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace vbr {

// The address that a block of the "HTML Format" names as its source; empty without one. The block's
// header is not believed otherwise.
std::u16string SourceUrlOfHtml(std::string_view block);

// The web address, or the path with drive and folder, that a text begins with; empty for any other
// text.
std::u16string TextAsUrl(std::u16string_view text);

}  // namespace vbr
