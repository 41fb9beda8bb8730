// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/handle.h"

namespace vbr::hook {

inline void FreeHeapBlock(void* block) {
    HeapFree(GetProcessHeap(), 0, block);
}

// Memory of the process's heap, which needs no runtime.
template <typename T>
using HeapBlock = Unique<T*, FreeHeapBlock>;

// Space for `count` values, not initialised; null when there is no memory.
template <typename T>
HeapBlock<T> MakeHeapBlock(std::size_t count) {
    return HeapBlock<T>(static_cast<T*>(HeapAlloc(GetProcessHeap(), 0, count * sizeof(T))));
}

}  // namespace vbr::hook
