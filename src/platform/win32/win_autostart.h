// SPDX-License-Identifier: MIT
#pragma once

#include "platform/autostart.h"

namespace vbr {

class WinAutostart : public Autostart {
  public:
    void Delete() override;
};

}  // namespace vbr
