// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

namespace vbr {

// Makes a window of this thread the foreground window, and gives the foreground back to the window
// of another process that had it.
class CAutoForegroundWindow {
  public:
    explicit CAutoForegroundWindow(HWND window);
    ~CAutoForegroundWindow();
    CAutoForegroundWindow(const CAutoForegroundWindow&) = delete;
    CAutoForegroundWindow& operator=(const CAutoForegroundWindow&) = delete;

  private:
    HWND previous_;
};

}  // namespace vbr
