// SPDX-License-Identifier: MIT
#pragma once

namespace vbr {

// What the setup program leaves behind for the program's reports.
class SetupMark {
  public:
    virtual ~SetupMark() = default;

    // Whether the setup program has installed this program for the user.
    virtual bool IsInstalledBySetup() const = 0;
};

}  // namespace vbr
