// SPDX-License-Identifier: MIT
#pragma once

#include "platform/process_starter.h"

namespace vbr {

class WinProcessStarter : public ProcessStarter {
  public:
    ProcessStart Start(StartWay way, std::u16string_view path,
                       std::u16string_view arguments) override;
};

}  // namespace vbr
