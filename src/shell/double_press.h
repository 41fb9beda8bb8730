// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace vbr {

// Tells which presses of the hot key count when it must be pressed twice within half a second.
class DoublePress {
  public:
    // True for a press that starts a query. `tick` is in milliseconds and may wrap.
    bool Press(bool doubled, std::uint32_t tick) {
        if (!doubled) {
            return true;
        }
        if (tick - lastTick_ > kWithinMs) {
            lastTick_ = tick;
            return false;
        }
        lastTick_ = 0;
        return true;
    }

  private:
    static constexpr std::uint32_t kWithinMs = 500;

    std::uint32_t lastTick_ = 0;
};

}  // namespace vbr
