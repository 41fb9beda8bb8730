// SPDX-License-Identifier: MIT
#pragma once

#include "hook/posted/hook_setup.h"

namespace vbr::hook {

// The hook that brings the library into other programs, where it answers the query message.
class MessageHook {
  public:
    bool IsSet() const { return hook_ != nullptr; }
    bool Set(const HookSetup& setup);

    // Not hooked any more; other programs let go of the library at their next message.
    bool Remove();

  private:
    HHOOK hook_ = nullptr;
    HANDLE published_ = nullptr;
};

}  // namespace vbr::hook
