// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <optional>
#include <string_view>

namespace vbr {

// How a window is made. Sizes in pixels.
struct WindowCreation {
    const wchar_t* ClassName = nullptr;  // registered on first use, with these three
    UINT ClassStyle = 0;
    HICON ClassIcon = nullptr;
    HBRUSH ClassBrush = nullptr;
    std::u16string_view Title;  // null-terminated
    DWORD Style = 0;
    int X = 0;
    int Y = 0;
    int Width = 0;
    int Height = 0;
    HWND Parent = nullptr;
};

// One row of a message map: a message and the member function that handles it.
template <typename Window>
struct MessageHandler {
    UINT Message;
    LRESULT (Window::*Handle)(WPARAM, LPARAM);
};

// Finds the message in the map and calls its handler; nothing when the map lacks it.
template <typename Window, std::size_t Size>
std::optional<LRESULT> DispatchMessageMap(Window& window, const MessageHandler<Window> (&map)[Size],
                                          UINT message, WPARAM wParam, LPARAM lParam) {
    for (const MessageHandler<Window>& row : map) {
        if (row.Message == message) {
            return (window.*row.Handle)(wParam, lParam);
        }
    }
    return std::nullopt;
}

// A window bound to an object. The object outlives the window: its destructor destroys it.
class WindowBase {
  public:
    WindowBase() = default;
    virtual ~WindowBase() { Destroy(); }
    WindowBase(const WindowBase&) = delete;
    WindowBase& operator=(const WindowBase&) = delete;

    HWND Handle() const { return window_; }

  protected:
    bool Create(const WindowCreation& creation);

    // No message reaches the object after this.
    void Destroy();

    // Nothing leaves the message to the default.
    virtual std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;

  private:
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HWND window_ = nullptr;
    bool isMade_ = false;
};

}  // namespace vbr
