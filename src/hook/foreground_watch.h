// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

namespace vbr::hook {

// A window of another process; false when there is none of that handle.
bool IsForeign(HWND window);

// Remembers which window of another program was in front last. Nothing is loaded into that program:
// the system's notices come through the message loop of the thread that started the watch.
class ForegroundWatch {
  public:
    bool Start();
    bool Stop();  // on the same thread

    // The window in front, null when that is one of this process.
    static HWND InFront();

    // The top window of another program that is in front or was so last; null when it is gone.
    HWND Last();

  private:
    void Remember(HWND window);
    static void CALLBACK Notice(HWINEVENTHOOK, DWORD, HWND, LONG, LONG, DWORD, DWORD);

    HWINEVENTHOOK hook_ = nullptr;
    HWND last_ = nullptr;
};

// The one of this process.
ForegroundWatch& TheForegroundWatch();

}  // namespace vbr::hook
