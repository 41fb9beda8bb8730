// SPDX-License-Identifier: MIT
#pragma once

#include "platform/input_injector.h"

namespace vbr {

class WinInputInjector : public InputInjector {
  public:
    std::size_t Send(std::span<const KeyEvent> events) override;
    bool IsKeyDown(std::uint16_t vk) const override;
    bool IsDownAsRead(std::uint16_t vk) const override;
    std::uint16_t ScanCode(std::uint16_t vk) const override;
};

}  // namespace vbr
