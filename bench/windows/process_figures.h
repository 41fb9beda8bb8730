// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <optional>
#include <string>
#include <vector>

namespace vbr::bench {

// How many threads the process has.
int CountThreads(DWORD process);

// The paths of the system's libraries that the process has loaded.
std::vector<std::wstring> SystemLibraries(DWORD process);

// Bytes that the process shares with no other and that were written to. `mark` stands in its
// command line alone, under Wine it is found by that; nothing when it can't be read.
std::optional<double> PrivateMemory(DWORD process, const std::wstring& mark);

}  // namespace vbr::bench
