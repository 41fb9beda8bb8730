// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

#include "platform/input_injector.h"

namespace vbr {

// The keyboard events that type a text: a Unicode pair for each UTF-16 unit, real keys for TAB, CR
// and LF.
std::vector<KeyEvent> PrintEvents(std::u16string_view text, const InputInjector& input);

// Steps of the left cursor key.
std::vector<KeyEvent> CursorEvents(std::size_t steps, const InputInjector& input);

// How much of the text is typed at once: as many characters as a target reads in a moment, no pair
// of units and no CR LF halved.
std::u16string_view NextPiece(std::u16string_view text);
inline constexpr std::size_t kPieceLength = 32;

}  // namespace vbr
