// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/driver/edit_window.h"

namespace vbr::desktop {

// Notepad, a plain edit control.
class Notepad : public EditWindow {
  public:
    Notepad() : EditWindow(L"notepad.exe", kClass, kEditClass) {}

    // The one that is open already.
    static Notepad Running();

  private:
    static constexpr const wchar_t* kClass = L"Notepad";
    static constexpr const wchar_t* kEditClass = L"Edit";

    explicit Notepad(HWND window) : EditWindow(window, kEditClass) {}
};

}  // namespace vbr::desktop
