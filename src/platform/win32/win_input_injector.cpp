// SPDX-License-Identifier: MIT
#include "platform/win32/win_input_injector.h"

#include "platform/win32/windows.h"

#include <vector>

namespace vbr {

std::size_t WinInputInjector::Send(std::span<const KeyEvent> events) {
    std::vector<INPUT> inputs;
    inputs.reserve(events.size());
    for (const KeyEvent& event : events) {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki = {event.Vk, event.Scan, event.Flags, 0, 0};
        inputs.push_back(input);
    }
    return SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

bool WinInputInjector::IsKeyDown(std::uint16_t vk) const {
    return GetAsyncKeyState(vk) < 0;
}

bool WinInputInjector::IsDownAsRead(std::uint16_t vk) const {
    return GetKeyState(vk) < 0;
}

std::uint16_t WinInputInjector::ScanCode(std::uint16_t vk) const {
    return static_cast<std::uint16_t>(MapVirtualKeyW(vk, MAPVK_VK_TO_VSC));
}

}  // namespace vbr
