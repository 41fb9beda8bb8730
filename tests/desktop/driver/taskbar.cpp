// SPDX-License-Identifier: MIT
#include "desktop/driver/taskbar.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <shellapi.h>

#include "platform/win32/handle.h"
#include "platform/win32/wide.h"

namespace vbr::desktop {
namespace {

constexpr const wchar_t* kClass = L"Shell_TrayWnd";

// What the data block begins with, whatever the width of the sender.
struct Block {
    std::int32_t Window;
    std::uint32_t Id;
    std::uint32_t Flags;
    std::uint32_t CallbackMessage;
};

// What goes on there; a newer Wine has the icon's measures in between.
struct Texts {
    wchar_t Tip[128];
    std::uint32_t State;
    std::uint32_t StateMask;
    wchar_t Balloon[256];
    std::uint32_t TimeoutOrVersion;
    wchar_t BalloonTitle[64];
    std::uint32_t BalloonFlags;
};

std::size_t TextsOffset() {
    using Version = const char*(CDECL*)();
    const auto version = reinterpret_cast<Version>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version")));
    constexpr std::size_t kMeasures = 4 * sizeof(std::uint32_t);
    return sizeof(Block) + (version && std::atoi(version()) >= 10 ? kMeasures : 0);
}

template <std::size_t Size>
std::u16string TextIn(const wchar_t (&field)[Size]) {
    return FromWide(field, wcsnlen(field, Size));
}

}  // namespace

Taskbar::Taskbar(int refusals) : refusals_(refusals) {
    const UniqueHandle ready(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    thread_ = std::thread([this, &ready] { Run(ready.get()); });
    WaitForSingleObject(ready.get(), INFINITE);
}

Taskbar::~Taskbar() {
    PostThreadMessageW(threadId_, WM_QUIT, 0, 0);
    thread_.join();
}

std::vector<IconNotice> Taskbar::Notices() const {
    const std::lock_guard lock(mutex_);
    return notices_;
}

// In front of the real one, so that programs find this one first.
void Taskbar::Run(HANDLE ready) {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = WindowProc;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = kClass;
    RegisterClassW(&windowClass);
    const HWND window = CreateWindowExW(WS_EX_TOPMOST, kClass, L"", WS_POPUP, 0, 0, 0, 0, nullptr,
                                        nullptr, windowClass.hInstance, nullptr);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    threadId_ = GetCurrentThreadId();
    SetEvent(ready);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        DispatchMessageW(&message);
    }
    DestroyWindow(window);
}

LRESULT CALLBACK Taskbar::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* self = reinterpret_cast<Taskbar*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_COPYDATA && self) {
        return self->Hear(*reinterpret_cast<const COPYDATASTRUCT*>(lParam));
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

bool Taskbar::Hear(const COPYDATASTRUCT& data) {
    if (data.cbData < TextsOffset() + sizeof(Texts)) {
        return false;
    }
    Block block;
    Texts texts;
    std::memcpy(&block, data.lpData, sizeof block);
    std::memcpy(&texts, static_cast<const char*>(data.lpData) + TextsOffset(), sizeof texts);
    IconNotice notice;
    notice.Message = static_cast<DWORD>(data.dwData);
    notice.Window = reinterpret_cast<HWND>(static_cast<LONG_PTR>(block.Window));
    notice.Flags = block.Flags;
    notice.CallbackMessage = block.CallbackMessage;
    if (block.Flags & NIF_TIP) {
        notice.Tip = TextIn(texts.Tip);
    }
    if (block.Flags & NIF_INFO) {
        notice.Balloon = TextIn(texts.Balloon);
        notice.BalloonTitle = TextIn(texts.BalloonTitle);
    }
    const std::lock_guard lock(mutex_);
    notices_.push_back(notice);
    return notice.Message != NIM_ADD || --refusals_ < 0;
}

}  // namespace vbr::desktop
