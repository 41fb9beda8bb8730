// SPDX-License-Identifier: MIT
#include "hook/system_manners.h"

namespace vbr::hook {

DWORD ForegroundEvent() {
    return EVENT_SYSTEM_FOREGROUND;
}

// The system does it with the next message of each thread.
void LetTargetsGo(HMODULE) {}

}  // namespace vbr::hook
