// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace vbr {

// Tells a press of the hot key from the repeats of one that is held down, which not every system
// leaves out.
class HeldHotkey {
  public:
    // Whether the key's event is a press. `tick` is in milliseconds and may wrap.
    bool IsPress(std::uint32_t tick) {
        const bool isRepeat = isHeld_ && tick - lastTick_ <= kLongestRepeatMs;
        isHeld_ = true;
        lastTick_ = tick;
        return !isRepeat;
    }
    void NoteLetGo() { isHeld_ = false; }

  private:
    // The first repeat comes after a second at most. After more, nobody could see the key let go.
    static constexpr std::uint32_t kLongestRepeatMs = 1100;

    bool isHeld_ = false;
    std::uint32_t lastTick_ = 0;
};

}  // namespace vbr
