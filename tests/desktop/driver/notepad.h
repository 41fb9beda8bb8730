// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <string>

#include "desktop/driver/process.h"

namespace vbr::desktop {

// Notepad as the target of a delivery.
class Notepad {
  public:
    // Starts one of its own and gives it the keyboard. Check IsOpen afterwards.
    Notepad();

    // The one that is open already.
    static Notepad Running();

    bool IsOpen() const { return edit_ != nullptr; }
    bool BringToFront() const;

    std::u16string Text() const;
    void SetText(const std::u16string& text) const;
    void Select(int from, int to) const;

    // Waits until the text is exactly this, and returns what it is then.
    std::u16string WaitForText(const std::u16string& expected) const;

    void CloseWithoutSaving();

  private:
    explicit Notepad(HWND window);
    void Attach(HWND window);

    Process process_;
    HWND window_ = nullptr;
    HWND edit_ = nullptr;
};

}  // namespace vbr::desktop
