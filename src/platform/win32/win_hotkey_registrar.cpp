// SPDX-License-Identifier: MIT
#include "platform/win32/win_hotkey_registrar.h"

#include "platform/win32/wide.h"
#include "platform/win32/win_system_error.h"

namespace vbr {
namespace {

// Keys whose scan code GetKeyNameText takes for a key of the number pad.
bool IsExtended(std::uint16_t vk) {
    return (vk >= VK_PRIOR && vk <= VK_DOWN) || vk == VK_INSERT || vk == VK_DELETE;
}

}  // namespace

std::optional<SystemError> WinHotkeyRegistrar::Register(std::uint16_t mods, std::uint16_t vk) {
    // Not every system knows the flag.
    if (RegisterHotKey(window_, id_, mods | MOD_NOREPEAT, vk) ||
        RegisterHotKey(window_, id_, mods, vk)) {
        return std::nullopt;
    }
    return SystemErrorOf(GetLastError());
}

bool WinHotkeyRegistrar::Unregister() {
    return UnregisterHotKey(window_, id_) != 0;
}

std::u16string WinHotkeyRegistrar::KeyName(std::uint16_t vk) const {
    const LONG scan = static_cast<LONG>(MapVirtualKeyW(vk, MAPVK_VK_TO_VSC)) << 16;
    wchar_t name[64];
    const int length = GetKeyNameTextW(scan | (IsExtended(vk) ? 1 << 24 : 0), name, 64);
    return FromWide(name, static_cast<std::size_t>(length));
}

}  // namespace vbr
