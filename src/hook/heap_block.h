// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <memory>

namespace vbr::hook {

// Memory of the process's heap, which needs no runtime.
struct HeapFreer {
    void operator()(void* block) const { HeapFree(GetProcessHeap(), 0, block); }
};
template <typename T>
using HeapBlock = std::unique_ptr<T, HeapFreer>;

// Room for `count` values, not initialised; null when there is no memory.
template <typename T>
HeapBlock<T> MakeHeapBlock(std::size_t count) {
    return HeapBlock<T>(static_cast<T*>(HeapAlloc(GetProcessHeap(), 0, count * sizeof(T))));
}

}  // namespace vbr::hook
