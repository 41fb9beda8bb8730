// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/window_handle.h"

namespace vbr {

struct WindowThread {
    std::uint32_t Thread = 0;
    std::uint32_t Process = 0;
};

// Windows of other programs: facts about them, and messages to them.
class DesktopWindows {
  public:
    virtual ~DesktopWindows() = default;

    virtual bool IsWindow(WindowHandle window) const = 0;
    virtual WindowThread ThreadOf(WindowHandle window) const = 0;
    // Full path of the process's program, else its file name alone, else empty.
    virtual std::u16string ProgramPath(std::uint32_t process) const = 0;
    // The system's number for the kind of a program file; nothing when it is no program.
    virtual std::optional<std::uint32_t> BinaryType(const std::u16string& path) const = 0;
    // Whether libraries of this program can run in the process; so when that can't be told.
    virtual bool HasOwnBitness(std::uint32_t process) const = 0;
    virtual std::u16string ClassName(WindowHandle window) const = 0;
    virtual LayoutHandle KeyboardLayout(std::uint32_t thread) const = 0;
    // Those of the calling thread.
    virtual GuiThreadWindows OwnGuiThread() const = 0;

    // Puts a message with that wParam into the window's queue; false when it can't.
    virtual bool Post(WindowHandle window, std::uint32_t message, std::uintptr_t wParam) = 0;
    // WM_COPY; a window that hangs is given up after two seconds.
    virtual void SendCopy(WindowHandle window) = 0;
};

}  // namespace vbr
