// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/window_handle.h"

namespace vbr {

// An icon of the system's, owned by who holds it.
using IconHandle = std::shared_ptr<void>;

// What the desktop tells about the program behind a window.
class ProgramWindows {
  public:
    virtual ~ProgramWindows() = default;

    virtual WindowHandle ParentOf(WindowHandle window) const = 0;  // 0 at the top
    virtual std::u16string TitleOf(WindowHandle window) const = 0;
    // The path of its program file; empty when the process doesn't tell.
    virtual std::u16string ProgramOf(WindowHandle window) const = 0;
    // Its own icon or that of its class, the big one first; null when it has none. Asks the window
    // and waits up to two seconds for a busy one.
    virtual IconHandle IconOf(WindowHandle window) const = 0;
    // The icon that the shell shows for the file; null when it has none.
    virtual IconHandle IconOfFile(std::u16string_view path) const = 0;
};

}  // namespace vbr
