// SPDX-License-Identifier: MIT
#include "platform/win32/window_base.h"

#include <utility>

#include "platform/win32/wide.h"

namespace vbr {
namespace {

// The object whose window is being made on this thread. Anybody can send the message that tells of
// it, so its parameters are not believed.
thread_local WindowBase* t_beingMade = nullptr;

}  // namespace

bool WindowBase::Create(const WindowCreation& creation) {
    WNDCLASSW windowClass{};
    windowClass.style = creation.ClassStyle;
    windowClass.hIcon = creation.ClassIcon;
    windowClass.hbrBackground = creation.ClassBrush;
    windowClass.lpfnWndProc = WindowProc;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.lpszClassName = creation.ClassName;
    if (!RegisterClassW(&windowClass) && GetLastError() != ERROR_CLASS_ALREADY_EXISTS) {
        return false;
    }
    t_beingMade = this;
    const HWND made =
        CreateWindowExW(0, creation.ClassName, Wide(std::u16string(creation.Title)), creation.Style,
                        creation.X, creation.Y, creation.Width, creation.Height, creation.Parent,
                        nullptr, windowClass.hInstance, nullptr);
    t_beingMade = nullptr;
    // Not every system tells a window that refuses its creation of its end.
    window_ = made;
    return made != nullptr;
}

void WindowBase::Destroy() {
    if (window_) {
        const HWND window = window_;
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        window_ = nullptr;
        DestroyWindow(window);
    }
}

LRESULT CALLBACK WindowBase::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        WindowBase* created = std::exchange(t_beingMade, nullptr);
        if (!created) {
            return FALSE;
        }
        created->window_ = window;
        created->isMade_ = false;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
    }
    auto* self = reinterpret_cast<WindowBase*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self) {
        return DefWindowProcW(window, message, wParam, lParam);
    }
    if (message == WM_CREATE && std::exchange(self->isMade_, true)) {
        return 0;  // it is made once
    }
    const std::optional<LRESULT> result = self->OnMessage(message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        self->window_ = nullptr;
    }
    return result ? *result : DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace vbr
