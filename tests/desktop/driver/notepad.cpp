// SPDX-License-Identifier: MIT
#include "desktop/driver/notepad.h"

#include "desktop/driver/waiting.h"
#include "platform/win32/wide.h"

namespace vbr::desktop {
namespace {

struct Search {
    DWORD Process;
    HWND Found;
};

HWND NotepadWindowOf(DWORD process) {
    Search search{process, nullptr};
    EnumWindows(
        [](HWND window, LPARAM data) -> BOOL {
            auto& wanted = *reinterpret_cast<Search*>(data);
            wchar_t name[32];
            DWORD owner = 0;
            GetWindowThreadProcessId(window, &owner);
            if (owner == wanted.Process && GetClassNameW(window, name, 32) > 0 &&
                std::wstring(name) == L"Notepad" && IsWindowVisible(window)) {
                wanted.Found = window;
            }
            return wanted.Found == nullptr;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.Found;
}

}  // namespace

Notepad::Notepad() : process_(L"notepad.exe") {
    WaitUntil([this] {
        Attach(NotepadWindowOf(process_.Id()));
        return IsOpen() && BringToFront();
    });
}

Notepad::Notepad(HWND window) {
    Attach(window);
}

Notepad Notepad::Running() {
    HWND window = nullptr;
    WaitUntil([&] {
        window = FindWindowW(L"Notepad", nullptr);
        return window && IsWindowVisible(window);
    });
    return Notepad(window);
}

void Notepad::Attach(HWND window) {
    window_ = window;
    edit_ = window ? FindWindowExW(window, nullptr, L"Edit", nullptr) : nullptr;
}

bool Notepad::BringToFront() const {
    SetForegroundWindow(window_);
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return GetGUIThreadInfo(GetWindowThreadProcessId(window_, nullptr), &info) &&
           info.hwndFocus == edit_ && GetForegroundWindow() == window_;
}

std::u16string Notepad::Text() const {
    std::u16string text(static_cast<std::size_t>(SendMessageW(edit_, WM_GETTEXTLENGTH, 0, 0)) + 1,
                        u'\0');
    text.resize(static_cast<std::size_t>(
        SendMessageW(edit_, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
    return text;
}

void Notepad::SetText(const std::u16string& text) const {
    SendMessageW(edit_, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(Wide(text)));
}

void Notepad::Select(int from, int to) const {
    SendMessageW(edit_, EM_SETSEL, static_cast<WPARAM>(from), to);
}

std::u16string Notepad::WaitForText(const std::u16string& expected) const {
    WaitUntil([&] { return Text() == expected; });
    return Text();
}

void Notepad::CloseWithoutSaving() {
    SendMessageW(edit_, EM_SETMODIFY, FALSE, 0);
    SendMessageW(window_, WM_CLOSE, 0, 0);
}

}  // namespace vbr::desktop
