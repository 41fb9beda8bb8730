// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <utility>

#include "platform/window_handle.h"

namespace vbr {

// A window of this thread that nobody sees.
class MessageWindow {
  public:
    explicit MessageWindow(const wchar_t* title = L"")
        : window_(CreateWindowExW(0, L"STATIC", title, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                  nullptr, nullptr)) {}
    ~MessageWindow() { Destroy(); }
    MessageWindow(const MessageWindow&) = delete;
    MessageWindow& operator=(const MessageWindow&) = delete;

    void Destroy() { DestroyWindow(std::exchange(window_, nullptr)); }
    HWND Get() const { return window_; }
    WindowHandle Number() const { return reinterpret_cast<WindowHandle>(window_); }

  private:
    HWND window_;
};

}  // namespace vbr
