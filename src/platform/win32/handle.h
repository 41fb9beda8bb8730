// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <memory>
#include <type_traits>

namespace vbr {

// Owns a kernel handle; null and INVALID_HANDLE_VALUE both count as none.
struct HandleCloser {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const {
        if (handle != INVALID_HANDLE_VALUE) {
            const DWORD error = GetLastError();
            CloseHandle(handle);
            SetLastError(error);
        }
    }
};
using UniqueHandle = std::unique_ptr<void, HandleCloser>;

inline bool IsValid(const UniqueHandle& handle) {
    return handle && handle.get() != INVALID_HANDLE_VALUE;
}

struct LocalFreer {
    void operator()(void* block) const { LocalFree(block); }
};
template <typename T>
using UniqueLocal = std::unique_ptr<T, LocalFreer>;

struct RegKeyCloser {
    using pointer = HKEY;
    void operator()(HKEY key) const { RegCloseKey(key); }
};
using UniqueRegKey = std::unique_ptr<std::remove_pointer_t<HKEY>, RegKeyCloser>;

}  // namespace vbr
