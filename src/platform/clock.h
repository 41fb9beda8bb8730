// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

#include "base/date_time.h"

namespace vbr {

// The wall clock, the tick count and the wait of the desktop.
class Clock {
  public:
    virtual ~Clock() = default;

    virtual SystemTime LocalTime() const = 0;
    virtual SystemTime UtcTime() const = 0;

    // Milliseconds since the system started; wraps after 49.7 days.
    virtual std::uint32_t TickCount() const = 0;

    virtual void Sleep(std::uint32_t milliseconds) = 0;
};

}  // namespace vbr
