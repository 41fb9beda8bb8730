// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "base/text.h"

namespace vbr {

// Where every part of the program notes what it does. Callable from any thread; returns before
// the line is on the disk, and does nothing while the log is off.
class Log {
  public:
    virtual ~Log() = default;

    // One entry with date and prefix.
    virtual void Write(std::u16string_view text) = 0;

    void LogError(std::u16string_view text) { Write(Concat(u"ERROR: ", text)); }
};

}  // namespace vbr
