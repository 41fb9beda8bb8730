// SPDX-License-Identifier: MIT
#pragma once

#include <set>

#include "platform/target_windows.h"

namespace vbr {

// Every window but 0 lives, until it is named as gone.
class FakeTargetWindows : public TargetWindows {
  public:
    std::set<WindowHandle> Gone = {0};
    std::set<WindowHandle> Own;
    std::set<WindowHandle> Elevated;
    int Wakes = 0;

    bool IsWindow(WindowHandle window) const override { return !Gone.contains(window); }
    bool IsOwnProcess(WindowHandle window) const override { return Own.contains(window); }
    bool RunsElevated(WindowHandle window) const override { return Elevated.contains(window); }
    void Wake(WindowHandle) override { ++Wakes; }
};

}  // namespace vbr
