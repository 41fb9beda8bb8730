// SPDX-License-Identifier: MIT
#pragma once

#include "platform/fault_catcher.h"

namespace vbr {

// Structured exception handling: it catches hardware faults, exceptions that the system raises, and
// C++ exceptions. Callable from any thread and from within itself; the innermost call catches.
// A stack overflow is caught too, and the thread's guard page is set up again.
class WinFaultCatcher : public FaultCatcher {
  public:
    std::optional<std::uint32_t> Run(const std::function<void()>& work) override;
};

}  // namespace vbr
