// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/driver/edit_window.h"

namespace vbr::desktop {

// Notepad, a plain edit control.
class Notepad : public EditWindow {
  public:
    explicit Notepad(const wchar_t* program = L"notepad.exe")
        : EditWindow(program, kClass, kEditClass) {}

    // The 32-bit one of 64-bit Windows. Wine may lack it.
    static constexpr const wchar_t* k32Bit = L"C:\\windows\\syswow64\\notepad.exe";

    // The one that is open already.
    static Notepad Running();

  private:
    static constexpr const wchar_t* kClass = L"Notepad";
    static constexpr const wchar_t* kEditClass = L"Edit";

    explicit Notepad(HWND window) : EditWindow(window, kEditClass) {}
};

}  // namespace vbr::desktop
