// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

#include "platform/input_injector.h"
#include "platform/log.h"

namespace vbr {

// The keyboard events that type a text: a Unicode pair for each UTF-16 unit, real keys for TAB, CR
// and LF, then `cursorBack` steps of the left cursor key.
std::vector<KeyEvent> PrintEvents(std::u16string_view text, std::size_t cursorBack,
                                  const InputInjector& input);

// Gets text into the window that has the keyboard focus.
class TextDelivery {
  public:
    TextDelivery(InputInjector& input, Log& log) : input_(input), log_(log) {}

    // Delivers plain text as typed keys; false for an empty text.
    bool DeliverText(std::u16string_view text, std::size_t cursorBack);

  private:
    bool PrintText(std::u16string_view text, std::size_t cursorBack);

    InputInjector& input_;
    Log& log_;
};

}  // namespace vbr
