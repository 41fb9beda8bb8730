// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "platform/window_handle.h"

namespace vbr {

struct WindowThread {
    std::uint32_t Thread = 0;
    std::uint32_t Process = 0;
};

// Facts about the windows of other programs.
class DesktopWindows {
  public:
    virtual ~DesktopWindows() = default;

    virtual WindowThread ThreadOf(WindowHandle window) const = 0;
    // Full path of the process's program, else its file name alone, else empty.
    virtual std::u16string ProgramPath(std::uint32_t process) const = 0;
    virtual std::u16string ClassName(WindowHandle window) const = 0;
    virtual LayoutHandle KeyboardLayout(std::uint32_t thread) const = 0;
    // WM_COPY; a window that hangs is given up after two seconds.
    virtual void SendCopy(WindowHandle window) = 0;
};

}  // namespace vbr
