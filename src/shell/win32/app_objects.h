// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include "platform/named_objects.h"

namespace vbr {

// The process-wide objects that windows and threads of the shell reach.
class CAppObjects {
  public:
    // Set by the tray window when it is created, null before and after its life.
    static HWND TrayWindow();
    static void SetTrayWindow(HWND window);

    // The instance event, whose setting stops every thread.
    static NamedEvent* StopEvent();
    static void SetStopEvent(NamedEvent* event);
};

}  // namespace vbr
