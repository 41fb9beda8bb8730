// SPDX-License-Identifier: MIT
#pragma once

#include "platform/clock.h"

namespace vbr {

class WinClock : public Clock {
  public:
    SystemTime LocalTime() const override;
    SystemTime UtcTime() const override;
    std::uint32_t TickCount() const override;
    void Sleep(std::uint32_t milliseconds) override;
};

}  // namespace vbr
