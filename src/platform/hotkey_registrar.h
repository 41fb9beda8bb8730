// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/system_error.h"

namespace vbr {

// The one global hot key of the program.
class HotkeyRegistrar {
  public:
    virtual ~HotkeyRegistrar() = default;

    // Fails for instance when another program owns the key.
    virtual std::optional<SystemError> Register(std::uint16_t mods, std::uint16_t vk) = 0;
    virtual bool Unregister() = 0;

    // The key's name on the user's keyboard.
    virtual std::u16string KeyName(std::uint16_t vk) const = 0;
};

}  // namespace vbr
