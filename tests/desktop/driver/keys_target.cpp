// SPDX-License-Identifier: MIT
#include "desktop/driver/keys_target.h"

#include <future>

#include "desktop/driver/waiting.h"
#include "platform/win32/wide.h"
#include "windows/global_memory.h"

namespace vbr::desktop {
namespace {

constexpr WPARAM kUnassigned[] = {0xE8, 0x97};

bool IsDown(int vk) {
    return GetKeyState(vk) < 0;
}

bool IsModifier(WPARAM vk) {
    return (vk >= VK_SHIFT && vk <= VK_MENU) || vk == VK_LWIN || vk == VK_RWIN;
}

// As programs do that find the clipboard in use.
bool OpenPatiently(HWND window) {
    return WaitUntil([window] { return OpenClipboard(window) != 0; }, 2000);
}

}  // namespace

KeysTarget::KeysTarget(Manners manners) : manners_(std::move(manners)) {
    std::promise<void> made;
    thread_ = std::thread([this, &made] {
        WNDCLASSW windowClass{};
        windowClass.lpfnWndProc = WindowProc;
        windowClass.lpszClassName = manners_.ClassName;
        windowClass.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
        RegisterClassW(&windowClass);
        const HMENU menu = CreateMenu();
        AppendMenuW(menu, MF_STRING, 1, L"&File");
        window_ = CreateWindowW(manners_.ClassName, L"Target", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 40,
                                50, 400, 300, nullptr, menu, nullptr, nullptr);
        SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        made.set_value();
        Run();
    });
    made.get_future().get();
}

KeysTarget::~KeysTarget() {
    PostMessageW(window_, WM_CLOSE, 0, 0);
    thread_.join();
}

void KeysTarget::Run() {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (message.message == WM_KEYDOWN) {
            Sleep(manners_.MsPerKey);
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

bool KeysTarget::BringToFront() const {
    return WaitUntil([this] {
        SetForegroundWindow(window_);
        return GetForegroundWindow() == window_;
    });
}

std::u16string KeysTarget::WaitForText(const std::u16string& expected) {
    WaitUntil([&] { return Text() == expected; });
    return Text();
}

LRESULT CALLBACK KeysTarget::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* self = reinterpret_cast<KeysTarget*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self && (message == WM_KEYDOWN || message == WM_SYSKEYDOWN)) {
        self->OnKey(wParam);
    } else if (self && message == WM_CHAR) {
        self->OnCharacter(static_cast<char16_t>(wParam));
    } else if (self && message == WM_SYSCOMMAND && (wParam & 0xFFF0) == SC_KEYMENU) {
        const std::lock_guard lock(self->mutex_);
        self->oddities_.push_back("menu");
        return 0;
    } else if (message == WM_DESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        PostQuitMessage(0);
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

void KeysTarget::OnKey(WPARAM vk) {
    const bool control = IsDown(VK_CONTROL);
    const bool others = IsDown(VK_MENU) || IsDown(VK_SHIFT) || IsDown(VK_LWIN) || IsDown(VK_RWIN);
    if (IsModifier(vk) || vk == kUnassigned[0] || vk == kUnassigned[1]) {
        return;
    }
    if (control && !others && vk == 'C' && !manners_.IsTerminal) {
        Copy();
    } else if (control && !others && vk == 'V') {
        Paste();
    } else {
        const std::lock_guard lock(mutex_);
        if (control && !others && vk == 'C') {
            ++interrupts_;
        } else if (control || others) {
            oddities_.push_back("key " + std::to_string(vk));
        } else if (vk == VK_LEFT) {
            ++cursorSteps_;
        }
    }
}

void KeysTarget::OnCharacter(char16_t unit) {
    if (IsDown(VK_CONTROL) || unit == u'\n') {
        return;
    }
    {
        const std::lock_guard lock(mutex_);
        text_ += unit;
    }
    if (manners_.OnCharacter) {
        manners_.OnCharacter(*this);
    }
}

void KeysTarget::Copy() const {
    if (!manners_.Selected.empty() && OpenPatiently(window_)) {
        EmptyClipboard();
        SetClipboardData(CF_UNICODETEXT,
                         MemoryOf({reinterpret_cast<const char*>(manners_.Selected.c_str()),
                                   2 * manners_.Selected.size() + 2}));
        CloseClipboard();
    }
}

void KeysTarget::Paste() {
    if (!OpenPatiently(window_)) {
        return;
    }
    const HANDLE data = GetClipboardData(CF_UNICODETEXT);
    if (const auto* units = data ? static_cast<const wchar_t*>(GlobalLock(data)) : nullptr) {
        const std::lock_guard lock(mutex_);
        text_ += FromWide(units);
        GlobalUnlock(data);
    }
    CloseClipboard();
}

}  // namespace vbr::desktop
