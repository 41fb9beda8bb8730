// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>

#include "platform/window_handle.h"

namespace vbr {

// Whether a thread shares the key state of the one that reads the keys sent to a window.
enum class JoinState {
    Joined,
    Refused,  // as by targets with more rights
    Hung,     // the window's thread answers nothing
};

// The keyboard input of another program's thread.
class InputJoin {
  public:
    virtual ~InputJoin() = default;

    // Runs the work on a thread of its own, joined with that of the window, while this one waits. A
    // window that doesn't answer within the time counts as hung.
    virtual void Run(WindowHandle window, std::uint32_t patienceMs,
                     const std::function<void(JoinState)>& work) = 0;
};

}  // namespace vbr
