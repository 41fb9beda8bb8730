// SPDX-License-Identifier: MIT
#include "desktop/driver/edit_window.h"

#include "desktop/driver/waiting.h"
#include "platform/win32/wide.h"

namespace vbr::desktop {
namespace {

struct Search {
    DWORD Process;
    const wchar_t* ClassName;
    HWND Found;
};

HWND WindowOf(DWORD process, const wchar_t* className) {
    Search search{process, className, nullptr};
    EnumWindows(
        [](HWND window, LPARAM data) -> BOOL {
            auto& wanted = *reinterpret_cast<Search*>(data);
            wchar_t name[32];
            DWORD owner = 0;
            GetWindowThreadProcessId(window, &owner);
            if (owner == wanted.Process && GetClassNameW(window, name, 32) > 0 &&
                std::wstring(name) == wanted.ClassName && IsWindowVisible(window)) {
                wanted.Found = window;
            }
            return wanted.Found == nullptr;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.Found;
}

}  // namespace

EditWindow::EditWindow(const wchar_t* commandLine, const wchar_t* windowClass,
                       const wchar_t* editClass)
    : process_(commandLine) {
    WaitUntil([&] {
        Attach(WindowOf(process_.Id(), windowClass), editClass);
        return IsOpen() && BringToFront();
    });
}

void EditWindow::Attach(HWND window, const wchar_t* editClass) {
    window_ = window;
    edit_ = window ? FindWindowExW(window, nullptr, editClass, nullptr) : nullptr;
}

bool EditWindow::BringToFront() const {
    if (GetForegroundWindow() != window_) {
        SetForegroundWindow(window_);
    }
    // The window may still be busy with an earlier call, and would come to the front once more.
    SendMessageW(edit_, WM_NULL, 0, 0);
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return GetGUIThreadInfo(GetWindowThreadProcessId(window_, nullptr), &info) &&
           info.hwndFocus == edit_ && GetForegroundWindow() == window_;
}

std::u16string TextOf(HWND window) {
    std::u16string text(static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1,
                        u'\0');
    text.resize(static_cast<std::size_t>(
        SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

void EditWindow::SetText(const std::u16string& text) const {
    SendMessageW(edit_, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(Wide(text)));
}

void EditWindow::Select(int from, int to) const {
    SendMessageW(edit_, EM_SETSEL, static_cast<WPARAM>(from), to);
}

std::u16string EditWindow::WaitForText(const std::u16string& expected) const {
    WaitUntil([&] { return Text() == expected; });
    return Text();
}

void EditWindow::CloseWithoutSaving() {
    SendMessageW(edit_, EM_SETMODIFY, FALSE, 0);
    SendMessageW(window_, WM_CLOSE, 0, 0);
}

}  // namespace vbr::desktop
