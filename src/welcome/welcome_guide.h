// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/strings.h"

namespace vbr {

// What the welcome program sees of the program that it greets for.
struct WelcomeFacts {
    bool IsRunning = false;   // the resident instance
    bool IsHotkeyOn = false;  // a press would be served
    std::u16string Box;       // what stands in the box to try the hot key in
};

// What it tells of that, and whether the user may start the program from here.
struct WelcomeState {
    std::u16string Text;
    bool MayStart = false;

    bool operator==(const WelcomeState&) const = default;
};

WelcomeState StateOf(const WelcomeFacts& facts, const Strings& texts);

// The hot key as the user presses it.
std::u16string WelcomeKeys(std::u16string_view hotkey, bool doubled, const Strings& texts);

}  // namespace vbr
