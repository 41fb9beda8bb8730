// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/geometry.h"
#include "platform/window_handle.h"

namespace vbr {

// Asks the user for a text while a phrase is delivered.
class Prompter {
  public:
    virtual ~Prompter() = default;

    // Shows the text as the default answer and returns when the dialog has closed and the window
    // has the keyboard again. True for OK, with the answer in `inOutText`; else that is empty.
    virtual bool ShowPromptDialog(WindowHandle window, std::u16string& inOutText) = 0;
};

// The dialog's title: the program's name and the first 100 characters of the target's title.
std::u16string PromptTitle(std::u16string_view program, std::u16string_view target);

// The answer of OK: what the user made of the default text. An emptied control gives the default.
std::u16string PromptAnswer(std::u16string_view defaultText, bool edited,
                            std::u16string_view content);

// Where the dialog stands. All rectangles in screen coordinates.
struct PromptSurroundings {
    std::optional<Rect> Caret;  // of the target, when it has one
    Rect Target;                // the target's window, or the work area when there is none
    Rect WorkArea;              // of the screen that holds the caret or the target
};

// Under the caret, over it where the screen ends, or in the middle of the target. All of the dialog
// stands within the work area when it has room there.
Rect PlacePrompt(Size dialog, const PromptSurroundings& around);

}  // namespace vbr
