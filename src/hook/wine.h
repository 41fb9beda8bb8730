// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/loaded_function.h"

namespace vbr::hook {

// Wine keeps hook libraries loaded and sends no notice about the window in front.
inline bool RunsOnWine() {
    return FunctionOf<void (*)()>(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

}  // namespace vbr::hook
