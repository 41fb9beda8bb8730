// SPDX-License-Identifier: MIT
#pragma once

#include "platform/window_handle.h"

namespace vbr {

// What a copy or a delivery has to know about the window that it goes to.
class TargetWindows {
  public:
    virtual ~TargetWindows() = default;

    virtual bool IsWindow(WindowHandle window) const = 0;
    virtual bool IsOwnProcess(WindowHandle window) const = 0;
    // Whether the window in front is the one that it stands in, or one that belongs to the same
    // window, as a dialog does.
    virtual bool IsInFront(WindowHandle window) const = 0;
    // Whether its program runs at a higher integrity level than this one: the system then keeps
    // typed keys from it.
    virtual bool RunsElevated(WindowHandle window) const = 0;
    // Posts a message that does nothing, so that the window's thread looks at its input.
    virtual void Wake(WindowHandle window) = 0;
};

}  // namespace vbr
