// SPDX-License-Identifier: MIT
#include "platform/win32/system_library.h"

namespace vbr {

void SearchSystemFolderOnly() {
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
    // The current folder is no place to look in, wherever a library goes round that.
    SetDllDirectoryW(L"");
}

UniqueLibrary LoadSystemLibrary(const wchar_t* name) {
    return UniqueLibrary(LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32));
}

}  // namespace vbr
