// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <future>
#include <thread>
#include <tuple>
#include <utility>

namespace vbr {

// A thread with one window that has the focus, as a target has it, and a message loop.
class TargetThread {
  public:
    TargetThread(const wchar_t* windowClass, DWORD style, WNDPROC procedure = nullptr) {
        std::promise<std::pair<HWND, DWORD>> made;
        auto result = made.get_future();
        thread_ = std::thread([&made, windowClass, style, procedure] {
            const HWND control =
                CreateWindowExW(0, windowClass, L"", WS_OVERLAPPED | WS_VISIBLE | style, 40, 50,
                                400, 300, nullptr, nullptr, nullptr, nullptr);
            if (procedure) {
                SetWindowLongPtrW(control, GWLP_USERDATA,
                                  SetWindowLongPtrW(control, GWLP_WNDPROC,
                                                    reinterpret_cast<LONG_PTR>(procedure)));
            }
            SetFocus(control);
            made.set_value({control, GetCurrentThreadId()});
            MSG message;
            while (GetMessageW(&message, nullptr, 0, 0) > 0) {
                DispatchMessageW(&message);
            }
            DestroyWindow(control);
        });
        std::tie(window_, id_) = result.get();
    }
    ~TargetThread() {
        PostThreadMessageW(id_, WM_QUIT, 0, 0);
        thread_.join();
    }
    TargetThread(const TargetThread&) = delete;
    TargetThread& operator=(const TargetThread&) = delete;

    HWND Window() const { return window_; }

    // What the class's own procedure makes of a message to a window that was made with another.
    static LRESULT CallOriginal(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        return CallWindowProcW(reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_USERDATA)),
                               window, message, wParam, lParam);
    }

  private:
    std::thread thread_;
    HWND window_ = nullptr;
    DWORD id_ = 0;
};

}  // namespace vbr
