// SPDX-License-Identifier: MIT
#include "platform/win32/module_path.h"

#include "platform/win32/windows.h"

#include "platform/win32/wide.h"

namespace vbr {

std::u16string ModulePath() {
    std::u16string path(MAX_PATH, u'\0');
    DWORD length = 0;
    while ((length = GetModuleFileNameW(nullptr, Wide(path.data()),
                                        static_cast<DWORD>(path.size()))) == path.size()) {
        path.resize(path.size() * 2);
    }
    path.resize(length);
    return path;
}

}  // namespace vbr
