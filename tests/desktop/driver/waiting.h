// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <utility>

namespace vbr::desktop {

// Far more than anything here takes: a wait ends as soon as its condition holds.
inline constexpr DWORD kPatienceMs = 30000;

// Asks again and again until the condition holds; false when the time is over.
template <typename Condition>
bool WaitUntil(Condition&& holds, DWORD patienceMs = kPatienceMs) {
    const ULONGLONG giveUp = GetTickCount64() + patienceMs;
    while (!holds()) {
        if (GetTickCount64() >= giveUp) {
            return false;
        }
        Sleep(20);
    }
    return true;
}

}  // namespace vbr::desktop
