// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <filesystem>

namespace vbr {

// Where this test program lies, and the program's own files beside it.
inline std::filesystem::path ProgramFolder() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::filesystem::path(path).parent_path();
}

}  // namespace vbr
