// SPDX-License-Identifier: MIT
#pragma once

#include "platform/input_injector.h"

namespace vbr {

class WinInputInjector : public InputInjector {
  public:
    void Send(std::span<const KeyEvent> events) override;
    std::uint16_t ScanCode(std::uint16_t vk) const override;
};

}  // namespace vbr
