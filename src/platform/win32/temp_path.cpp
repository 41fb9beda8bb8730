// SPDX-License-Identifier: MIT
#include "platform/win32/temp_path.h"

#include "platform/win32/windows.h"

namespace vbr {

std::filesystem::path MakeTempPath(const std::filesystem::path& folder,
                                   std::u16string_view extension) {
    wchar_t parent[MAX_PATH + 1];
    if (folder.empty() && GetTempPathW(MAX_PATH + 1, parent) == 0) {
        return {};
    }
    wchar_t name[MAX_PATH];
    if (GetTempFileNameW(folder.empty() ? parent : folder.c_str(), L"abcd", GetTickCount(), name) ==
        0) {
        return {};
    }
    std::filesystem::path path = name;
    if (!extension.empty()) {
        path += extension.starts_with(u'.') ? u"" : u".";
        path += extension;
    }
    return path;
}

}  // namespace vbr
