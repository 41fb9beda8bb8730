// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <memory>
#include <type_traits>

namespace vbr {

template <typename Handle, auto Close>
struct Closer {
    using pointer = Handle;
    void operator()(Handle handle) const {
        if constexpr (std::is_same_v<Handle, HANDLE>) {
            if (handle == INVALID_HANDLE_VALUE) {
                return;
            }
        }
        const DWORD error = GetLastError();
        Close(handle);
        SetLastError(error);
    }
};

// Owns what the function `Close` gives back to the system; the thread's last error outlives it.
template <typename Handle, auto Close>
using Unique = std::unique_ptr<std::remove_pointer_t<Handle>, Closer<Handle, Close>>;

// Null and INVALID_HANDLE_VALUE both count as none.
template <auto Close>
bool IsValid(const std::unique_ptr<void, Closer<HANDLE, Close>>& handle) {
    return handle && handle.get() != INVALID_HANDLE_VALUE;
}

using UniqueHandle = Unique<HANDLE, CloseHandle>;
using UniqueLibrary = Unique<HMODULE, FreeLibrary>;
using UniqueRegKey = Unique<HKEY, RegCloseKey>;
using UniqueWindow = Unique<HWND, DestroyWindow>;
using UniqueHook = Unique<HHOOK, UnhookWindowsHookEx>;
template <typename T>
using UniqueLocal = Unique<T*, LocalFree>;
template <typename T>
using UniqueView = Unique<T*, UnmapViewOfFile>;

// A view of the first bytes of a mapping, of all when that is 0; null when there is no mapping or
// it is smaller.
template <typename T>
UniqueView<T> MapView(HANDLE mapping, DWORD access, SIZE_T bytes) {
    return UniqueView<T>(mapping ? static_cast<T*>(MapViewOfFile(mapping, access, 0, 0, bytes))
                                 : nullptr);
}

}  // namespace vbr
