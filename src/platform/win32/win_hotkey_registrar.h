// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include "platform/hotkey_registrar.h"

namespace vbr {

// The hot key as WM_HOTKEY of one window.
class WinHotkeyRegistrar : public HotkeyRegistrar {
  public:
    WinHotkeyRegistrar(HWND window, int id) : window_(window), id_(id) {}

    std::optional<SystemError> Register(std::uint16_t mods, std::uint16_t vk) override;
    bool Unregister() override;
    std::u16string KeyName(std::uint16_t vk) const override;

  private:
    HWND window_;
    int id_;
};

}  // namespace vbr
