// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>

#include "desktop/driver/waiting.h"
#include "platform/win32/handle.h"
#include "windows/global_memory.h"
#include "windows/target_thread.h"

namespace vbr::desktop {

// A window in front that takes text, of a thread that can be made to hang. One at a time.
class HangingTarget {
  public:
    HangingTarget() : target_(L"Edit", 0, Hear) {
        EventOf().reset(CreateEventW(nullptr, TRUE, FALSE, nullptr));
        WaitUntil([this] {
            SetForegroundWindow(target_.Window());
            return GetForegroundWindow() == target_.Window();
        });
    }
    ~HangingTarget() { GoOn(); }
    HangingTarget(const HangingTarget&) = delete;
    HangingTarget& operator=(const HangingTarget&) = delete;

    void Hang() { PostMessageW(target_.Window(), WM_USER, 0, 0); }
    // Copies, and hangs when it is asked for what it has copied.
    void CopyAndHang() { SendMessageW(target_.Window(), WM_USER + 1, 0, 0); }
    bool WaitUntilHanging() {
        return WaitUntil([] { return IsHanging().load(); });
    }
    // Copies the text "late" and hangs from then on.
    void CopyThenHang() { PostMessageW(target_.Window(), WM_USER + 2, 0, 0); }
    // Returns when the thread is through with what has come meanwhile.
    void GoOn() {
        SetEvent(EventOf().get());
        SendMessageW(target_.Window(), WM_NULL, 0, 0);
    }

  private:
    static UniqueHandle& EventOf() {
        static UniqueHandle event;
        return event;
    }
    static std::atomic<bool>& IsHanging() {
        static std::atomic<bool> isHanging = false;
        return isHanging;
    }
    static LRESULT CALLBACK Hear(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_USER + 1) {
            WaitUntil([window] { return OpenClipboard(window) != 0; });
            EmptyClipboard();
            SetClipboardData(CF_UNICODETEXT, nullptr);
            CloseClipboard();
        }
        if (message == WM_USER + 2) {
            WaitUntil([window] { return OpenClipboard(window) != 0; });
            EmptyClipboard();
            SetClipboardData(CF_UNICODETEXT, MemoryOf(std::string_view("l\0a\0t\0e\0\0\0", 10)));
            CloseClipboard();
        }
        if (message == WM_USER || message == WM_USER + 2 || message == WM_RENDERFORMAT) {
            IsHanging() = true;
            WaitForSingleObject(EventOf().get(), INFINITE);
            IsHanging() = false;
        }
        return TargetThread::CallOriginal(window, message, wParam, lParam);
    }

    TargetThread target_;
};

}  // namespace vbr::desktop
