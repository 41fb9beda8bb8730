// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "platform/clock.h"

namespace vbr {

// A clock that stands still until the test moves it; a sleep moves the tick count only.
class FakeClock : public Clock {
  public:
    SystemTime Local;
    SystemTime Utc;
    std::uint32_t Tick = 0;
    std::vector<std::uint32_t> Sleeps;
    std::function<void()> WhileAsleep = [] {};

    SystemTime LocalTime() const override { return Local; }
    SystemTime UtcTime() const override { return Utc; }
    std::uint32_t TickCount() const override { return Tick; }

    void Sleep(std::uint32_t milliseconds) override {
        if (milliseconds > 0) {
            Sleeps.push_back(milliseconds);
            Tick += milliseconds;
        }
        WhileAsleep();
    }
};

}  // namespace vbr
