// SPDX-License-Identifier: MIT
#include "platform/win32/window_base.h"

#include "platform/win32/wide.h"

namespace vbr {

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
    const HWND made =
        CreateWindowExW(0, creation.ClassName, Wide(std::u16string(creation.Title)), creation.Style,
                        creation.X, creation.Y, creation.Width, creation.Height, creation.Parent,
                        nullptr, windowClass.hInstance, this);
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
        const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        auto* created = static_cast<WindowBase*>(creation->lpCreateParams);
        created->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
    }
    auto* self = reinterpret_cast<WindowBase*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self) {
        return DefWindowProcW(window, message, wParam, lParam);
    }
    const std::optional<LRESULT> result = self->OnMessage(message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        self->window_ = nullptr;
    }
    return result ? *result : DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace vbr
