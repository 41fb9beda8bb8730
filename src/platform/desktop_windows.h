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
    // The top window that it stands in; itself for a top window.
    virtual WindowHandle RootOf(WindowHandle window) const = 0;
    // Whether anything is selected in an edit control; nothing when it can't tell. One that hangs
    // and one for passwords have no selection.
    virtual std::optional<bool> HasSelection(WindowHandle edit) const = 0;
    virtual LayoutHandle KeyboardLayout(std::uint32_t thread) const = 0;
    // Those of the calling thread.
    virtual GuiThreadWindows OwnGuiThread() const = 0;

    // Puts a message with that wParam into the window's queue; false when it can't.
    virtual bool Post(WindowHandle window, std::uint32_t message, std::uintptr_t wParam) = 0;
    // WM_COPY; waits that long for a window that doesn't answer, not at all for one that hangs.
    virtual void SendCopy(WindowHandle window, std::uint32_t patienceMs) = 0;
};

}  // namespace vbr
