// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "platform/strings.h"

namespace vbr {

// Why a text didn't arrive, or not whole.
enum class DeliveryFailure {
    TargetGone,      // its window is closed
    TargetElevated,  // it has more rights than this program, and the system keeps keys from it
    NotInFront,      // another program has the keyboard
    NotRead,         // the target takes too long to read its keys
    NotTaken,        // the system takes no input
    ClipboardInUse,  // another program keeps the clipboard open
    NotStarted,      // a program, as a message has told
    ProgramEnds,     // nobody is left to be told
};

// What the user is told of a text that didn't arrive; empty for what needs no word.
std::u16string DescribeFailure(DeliveryFailure failure, std::u16string_view text,
                               const Strings& texts);

}  // namespace vbr
