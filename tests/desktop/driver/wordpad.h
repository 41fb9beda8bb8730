// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/driver/edit_window.h"

namespace vbr::desktop {

// WordPad, a rich edit control.
class WordPad : public EditWindow {
  public:
    WordPad()
        : EditWindow(L"\"C:\\Program Files\\Windows NT\\Accessories\\wordpad.exe\"", L"WORDPADTOP",
                     L"RichEdit20W") {}
};

}  // namespace vbr::desktop
