// SPDX-License-Identifier: MIT
#pragma once

#include "platform/setup_mark.h"

namespace vbr {

// The value "FromInstaller" under the program's key of the current user.
class WinSetupMark : public SetupMark {
  public:
    bool IsInstalledBySetup() const override;
};

}  // namespace vbr
