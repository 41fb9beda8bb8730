// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <string>

#include "desktop/driver/process.h"

namespace vbr::desktop {

std::u16string TextOf(HWND window);

// An editor as the target of a delivery: a top window with an edit control in it.
class EditWindow {
  public:
    bool IsOpen() const { return edit_ != nullptr; }
    bool Is32Bit() const { return process_.Is32Bit(); }
    bool BringToFront() const;
    HWND Window() const { return window_; }
    HWND Edit() const { return edit_; }

    // A line ends in CR LF in a plain edit control, in CR in a rich one.
    std::u16string Text() const { return TextOf(edit_); }
    void SetText(const std::u16string& text) const;
    void Select(int from, int to) const;

    // Waits until the text is exactly this, and returns what it is then.
    std::u16string WaitForText(const std::u16string& expected) const;

    void CloseWithoutSaving();

  protected:
    // Starts a program of its own and gives it the keyboard. Check IsOpen afterwards.
    EditWindow(const wchar_t* commandLine, const wchar_t* windowClass, const wchar_t* editClass);
    // Takes a window that is there already, or null.
    EditWindow(HWND window, const wchar_t* editClass) { Attach(window, editClass); }

  private:
    void Attach(HWND window, const wchar_t* editClass);

    Process process_;
    HWND window_ = nullptr;
    HWND edit_ = nullptr;
};

}  // namespace vbr::desktop
