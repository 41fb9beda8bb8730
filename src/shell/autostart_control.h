// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "platform/autostart.h"
#include "platform/log.h"

namespace vbr {

// Whether this program, and not a copy of it elsewhere, starts with Windows.
class AutostartControl {
  public:
    // `modulePath` is the program's own file.
    AutostartControl(Autostart& autostart, std::u16string_view modulePath, Log& log)
        : autostart_(autostart), modulePath_(modulePath), log_(log) {}

    bool IsAutostart() const;
    // A failure is logged.
    void SetAutostart(bool on);
    // The user's own wish, which outweighs what the system's list of startup programs says.
    void Invert();

  private:
    Autostart& autostart_;
    std::u16string modulePath_;
    Log& log_;
};

}  // namespace vbr
