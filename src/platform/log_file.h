// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace vbr {

// The file behind the log, which the user turns on and off.
class LogFile {
  public:
    virtual ~LogFile() = default;

    // False when it is on already or can't be made.
    virtual bool StartLog(const std::u16string& path) = 0;
    // Writes what waits and turns the log off.
    virtual void StopLog() = 0;

    // Path and global atom of the running log, for the hook library; empty and 0 while it is off.
    virtual std::u16string Path() const = 0;
    virtual std::uint16_t Atom() const = 0;
};

}  // namespace vbr
