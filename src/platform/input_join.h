// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "platform/window_handle.h"

namespace vbr {

// The keyboard input of another program's thread.
class InputJoin {
  public:
    virtual ~InputJoin() = default;

    // Runs the work on a thread of its own while this one waits. The argument tells whether that
    // thread shares the key state of the one that reads the keys sent to the window; hung targets,
    // and those with more rights, refuse.
    virtual void Run(WindowHandle window, const std::function<void(bool isJoined)>& work) = 0;
};

}  // namespace vbr
