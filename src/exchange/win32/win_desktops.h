// SPDX-License-Identifier: MIT
#pragma once

#include "exchange/input_desktop.h"

namespace vbr {

class WinDesktops : public Desktops {
  public:
    std::unique_ptr<Desktop> OpenOfThread() override;
    std::unique_ptr<Desktop> OpenInput() override;
};

}  // namespace vbr
