// SPDX-License-Identifier: MIT
#include "desktop/driver/keyboard.h"

#include <algorithm>

#include "desktop/driver/waiting.h"

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

std::vector<INPUT> ReleaseOfModifiers() {
    std::vector<INPUT> inputs;
    for (const WORD modifier : kModifiers) {
        if (GetAsyncKeyState(modifier) < 0) {
            inputs.push_back(KeyInput(modifier, KEYEVENTF_KEYUP));
        }
    }
    return inputs;
}

void SendKey(WORD key, DWORD flags) {
    INPUT input = KeyInput(key, flags);
    SendInput(1, &input, sizeof(INPUT));
}

}  // namespace

void PressKeys(const std::vector<WORD>& keys) {
    std::vector<INPUT> inputs = ReleaseOfModifiers();
    for (const WORD key : keys) {
        inputs.push_back(KeyInput(key, 0));
    }
    std::for_each(keys.rbegin(), keys.rend(),
                  [&](WORD key) { inputs.push_back(KeyInput(key, KEYEVENTF_KEYUP)); });
    SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

void HoldKeys(const std::vector<WORD>& keys, DWORD milliseconds) {
    constexpr DWORD kBetweenFingersMs = 8;
    std::vector<INPUT> inputs = ReleaseOfModifiers();
    SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
    for (const WORD key : keys) {
        SendKey(key, 0);
        Sleep(kBetweenFingersMs);
    }
    WaitUntil([] { return false; }, milliseconds);
    // The key goes first, then the modifiers one after the other.
    for (auto key = keys.rbegin(); key != keys.rend(); ++key) {
        SendKey(*key, KEYEVENTF_KEYUP);
        Sleep(kBetweenFingersMs);
    }
}

void TypeText(std::u16string_view text) {
    for (const char16_t unit : text) {
        INPUT inputs[2]{};
        inputs[0].type = inputs[1].type = INPUT_KEYBOARD;
        inputs[0].ki.wScan = inputs[1].ki.wScan = unit;
        inputs[0].ki.dwFlags = KEYEVENTF_UNICODE;
        inputs[1].ki.dwFlags = KEYEVENTF_UNICODE | KEYEVENTF_KEYUP;
        SendInput(2, inputs, sizeof(INPUT));
    }
}

}  // namespace vbr::desktop
