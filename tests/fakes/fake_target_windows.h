// SPDX-License-Identifier: MIT
#pragma once

#include <set>

#include "platform/target_windows.h"

namespace vbr {

// Every window but 0 lives and can be reached.
class FakeTargetWindows : public TargetWindows {
  public:
    std::set<WindowHandle> Own;
    int Wakes = 0;

    bool IsWindow(WindowHandle window) const override { return window != 0; }
    bool IsOwnProcess(WindowHandle window) const override { return Own.contains(window); }
    bool RunsElevated(WindowHandle) const override { return false; }
    void Wake(WindowHandle) override { ++Wakes; }
};

}  // namespace vbr
