// SPDX-License-Identifier: MIT
#pragma once

namespace vbr {

// The value "Vellumbridge" under the current user's Run key.
class Autostart {
  public:
    virtual ~Autostart() = default;

    // Deletes the value; a missing one is no error.
    virtual void Delete() = 0;
};

}  // namespace vbr
