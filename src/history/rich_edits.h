// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

#include "platform/locale.h"
#include "platform/rich_text_engine.h"

namespace vbr {

// Loads a source and turns its letters into one case. Fonts, sizes and paragraphs stay; bold and
// the like go, and the text becomes black. False when the engine can't do it.
bool LoadRichInCase(RichTextEngine& engine, std::u16string_view source, LetterCase letterCase,
                    const Locale& locale);

// Takes blanks, line ends and line feeds, one kind after the other, from the end and the start of
// the document; how many.
std::size_t TrimRich(RichTextEngine& engine);

// Puts a blank in the place of each line break of the document; how many.
std::size_t JoinRich(RichTextEngine& engine);

}  // namespace vbr
