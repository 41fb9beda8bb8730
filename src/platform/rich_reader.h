// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "platform/rich_text_engine.h"

namespace vbr {

// The text of a source that the engine refuses, lines ending in CR LF, as well as it can be read:
// groups may be open or missing, and what shows no text is left out. What doesn't begin as Rich
// Text Format is text by itself.
std::u16string ReadRichText(std::u16string_view source, const RichTextEngine& engine);

}  // namespace vbr
