// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vbr {

// The value "Vellumbridge" under the current user's Run key: a command line that the system carries
// out at each logon.
class Autostart {
  public:
    virtual ~Autostart() = default;

    // Nothing when there is none, it is no text, or the user has switched it off in the system's
    // own list of startup programs.
    virtual std::optional<std::u16string> Read() const = 0;
    // False when the system refuses.
    virtual bool Write(std::u16string_view commandLine) = 0;
    // Deletes the value; a missing one is no error.
    virtual void Delete() = 0;
    // Switches the value on in the system's own list again.
    virtual void Allow() = 0;
};

}  // namespace vbr
