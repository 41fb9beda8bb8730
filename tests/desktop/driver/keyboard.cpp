// SPDX-License-Identifier: MIT
#include "desktop/driver/keyboard.h"

#include <algorithm>

namespace vbr::desktop {
namespace {

// Wine may write back an older state of the keyboard when a window appears while keys are let go:
// such a modifier stays held, and no hot key is one any more. A person would press it once again.
constexpr WORD kModifiers[] = {VK_LSHIFT, VK_RSHIFT, VK_LCONTROL, VK_RCONTROL,
                               VK_LMENU,  VK_RMENU,  VK_LWIN,     VK_RWIN};

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
    for (const WORD modifier : kModifiers) {
        if (GetAsyncKeyState(modifier) < 0) {
            inputs.push_back(KeyInput(modifier, KEYEVENTF_KEYUP));
        }
    }
    for (const WORD key : keys) {
        inputs.push_back(KeyInput(key, 0));
    }
    std::for_each(keys.rbegin(), keys.rend(),
                  [&](WORD key) { inputs.push_back(KeyInput(key, KEYEVENTF_KEYUP)); });
    SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

}  // namespace vbr::desktop
