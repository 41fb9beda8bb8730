// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include "exchange/install_params.h"

// The road on which the library enters targets and answers a query from within. A 64-bit Windows
// never takes it: the library for that has no_posted_route.cpp in its place.
namespace vbr::hook {

// The loader has brought the library into a process.
void EnterProcess(HMODULE module);

// One of the codes of WPInstallParams. The names in the block are good.
std::uint32_t StartPostedRoute(const WPInstallParams& params);

// False when the library is still hooked in. Nothing to do when the road was not taken.
bool StopPostedRoute();

}  // namespace vbr::hook
