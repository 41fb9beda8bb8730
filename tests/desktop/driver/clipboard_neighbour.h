// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include "windows/target_thread.h"

namespace vbr::desktop {

// A program that looks at the clipboard after each change, and takes its time for it.
class ClipboardNeighbour {
  public:
    ClipboardNeighbour() { AddClipboardFormatListener(thread_.Window()); }
    ~ClipboardNeighbour() { RemoveClipboardFormatListener(thread_.Window()); }
    ClipboardNeighbour(const ClipboardNeighbour&) = delete;
    ClipboardNeighbour& operator=(const ClipboardNeighbour&) = delete;

  private:
    static constexpr DWORD kLookMs = 200;

    static LRESULT CALLBACK Look(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_CLIPBOARDUPDATE && OpenClipboard(window)) {
            Sleep(kLookMs);
            CloseClipboard();
        }
        return TargetThread::CallOriginal(window, message, wParam, lParam);
    }

    TargetThread thread_{L"Static", 0, Look};
};

}  // namespace vbr::desktop
