// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/log.h"
#include "platform/system_error.h"

namespace vbr {

// A desktop's name, or why it can't be read.
struct DesktopName {
    bool Read = false;
    std::u16string Text;
    std::uint32_t LengthNeeded = 0;  // bytes
    SystemError Error;
};

// An open desktop of the window station.
class Desktop {
  public:
    virtual ~Desktop() = default;

    virtual std::uintptr_t Handle() const = 0;
    virtual DesktopName Name() const = 0;
};

// Opens desktops; null when the system refuses.
class Desktops {
  public:
    virtual ~Desktops() = default;

    // The one that the calling thread's windows are on.
    virtual std::unique_ptr<Desktop> OpenOfThread() = 0;
    // The one that takes the user's input now.
    virtual std::unique_ptr<Desktop> OpenInput() = 0;
};

// False while the user is elsewhere, as at a password prompt or a locked screen.
bool IsInputDesktopActive(Desktops& desktops, Log& log);

// The same question for a hot key that has come, with its answer in the log.
bool MayServeHotkey(Desktops& desktops, Log& log);

}  // namespace vbr
