// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

namespace vbr {

// Null when there is no such module or function.
template <typename Function>
Function FunctionOf(HMODULE module, const char* name) {
    return module
               ? reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)))
               : nullptr;
}

}  // namespace vbr
