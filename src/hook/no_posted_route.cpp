// SPDX-License-Identifier: MIT
#include "hook/posted_route.h"

namespace vbr::hook {

void EnterProcess(HMODULE) {}

std::uint32_t StartPostedRoute(const WPInstallParams&) {
    return kHookNotHooked;
}

bool StopPostedRoute() {
    return true;
}

}  // namespace vbr::hook
