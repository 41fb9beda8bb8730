// SPDX-License-Identifier: MIT
#pragma once

#include "platform/clipboard.h"
#include "platform/win32/win_clipboard_access.h"

namespace vbr {

// Doesn't wait for a program that holds the clipboard open. The text of a hung owner counts as
// none.
class WinClipboard : public Clipboard {
  public:
    bool Empty() override;
    std::u16string Text() const override;
    std::u16string UnicodeText() const override;

  private:
    // It only reads and empties.
    mutable WinClipboardAccess access_{nullptr};
};

}  // namespace vbr
