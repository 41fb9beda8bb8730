// SPDX-License-Identifier: MIT
#include "platform/win32/program_path.h"

#include "platform/win32/handle.h"
#include "platform/win32/wide.h"

namespace vbr {

std::u16string ProgramPathOf(DWORD process) {
    const UniqueHandle handle(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, process));
    wchar_t path[1024];
    DWORD length = 1024;
    const bool told = handle && QueryFullProcessImageNameW(handle.get(), 0, path, &length);
    return FromWide(path, told ? length : 0);
}

}  // namespace vbr
