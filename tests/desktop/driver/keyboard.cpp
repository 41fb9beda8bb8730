// SPDX-License-Identifier: MIT
#include "desktop/driver/keyboard.h"

#include <algorithm>

namespace vbr::desktop {
namespace {

INPUT KeyInput(WORD key, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags;
    return input;
}

}  // namespace

void PressKeys(const std::vector<WORD>& keys) {
    std::vector<INPUT> inputs;
    for (const WORD key : keys) {
        inputs.push_back(KeyInput(key, 0));
    }
    std::for_each(keys.rbegin(), keys.rend(),
                  [&](WORD key) { inputs.push_back(KeyInput(key, KEYEVENTF_KEYUP)); });
    SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

}  // namespace vbr::desktop
