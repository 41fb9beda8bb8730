// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <cstring>
#include <string_view>

namespace vbr {

// Memory as the clipboard takes it.
inline HGLOBAL MemoryOf(std::string_view bytes) {
    HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
    if (!bytes.empty()) {
        std::memcpy(GlobalLock(memory), bytes.data(), bytes.size());
        GlobalUnlock(memory);
    }
    return memory;
}

}  // namespace vbr
