// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/window_base.h"

namespace vbr {

// The message-only window that owns the phrase menu while it is open.
class CMenuTracker : public WindowBase {
  public:
    // The window's handle, null when it can't be made.
    HWND Create();

  protected:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
};

}  // namespace vbr
