// SPDX-License-Identifier: MIT
#pragma once

#include "platform/target_windows.h"

namespace vbr {

class WinTargetWindows : public TargetWindows {
  public:
    bool IsWindow(WindowHandle window) const override;
    bool IsOwnProcess(WindowHandle window) const override;
    bool IsInFront(WindowHandle window) const override;
    bool RunsElevated(WindowHandle window) const override;
    void Wake(WindowHandle window) override;
};

}  // namespace vbr
