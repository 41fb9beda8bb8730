// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

namespace vbr::hook {

// A library of the system, loaded for the time of use and from nowhere but the system's folder.
class LoadedLibrary {
  public:
    explicit LoadedLibrary(const wchar_t* name)
        : module_(LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32)) {}
    ~LoadedLibrary() {
        if (module_) {
            FreeLibrary(module_);
        }
    }
    LoadedLibrary(const LoadedLibrary&) = delete;
    LoadedLibrary& operator=(const LoadedLibrary&) = delete;

    HMODULE Module() const { return module_; }

  private:
    HMODULE module_;
};

// Null when there is no such module or function.
template <typename Function>
Function FunctionOf(HMODULE module, const char* name) {
    return module
               ? reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)))
               : nullptr;
}

}  // namespace vbr::hook
