// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <utility>

namespace vbr::desktop {

// Far more than anything here takes: a wait ends as soon as its condition holds.
inline constexpr DWORD kPatienceMs = 30000;

inline constexpr DWORD kAskEveryMs = 5;

// Asks again and again until the condition holds; false when the time is over.
template <typename Condition>
bool WaitUntil(Condition&& holds, DWORD patienceMs = kPatienceMs) {
    const ULONGLONG giveUp = GetTickCount64() + patienceMs;
    while (!holds()) {
        if (GetTickCount64() >= giveUp) {
            return false;
        }
        // Whoever asks a window of this process meanwhile, or for what it has copied, is answered.
        MsgWaitForMultipleObjects(0, nullptr, FALSE, kAskEveryMs, QS_SENDMESSAGE);
        MSG ignored;
        PeekMessageW(&ignored, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
    }
    return true;
}

}  // namespace vbr::desktop
