// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

namespace vbr {

// Answers all messages that wait for this thread.
inline void Pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        DispatchMessageW(&message);
    }
}

// Answers messages, as a main thread does, until the condition holds; false when it never does.
template <typename Condition>
bool PumpUntil(const Condition& holds) {
    const ULONGLONG giveUp = GetTickCount64() + 30'000;
    while (!holds() && GetTickCount64() < giveUp) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
        Pump();
    }
    return holds();
}

}  // namespace vbr
