// SPDX-License-Identifier: MIT
#include "platform/win32/new_file.h"

#include <atomic>
#include <cstdint>

#include "base/text.h"
#include "platform/stamped_files.h"
#include "platform/win32/handle.h"

namespace vbr {

std::filesystem::path NewFileIn(const std::filesystem::path& folder) {
    static std::atomic<std::uint32_t> calls;
    return folder / Concat(kNewFilePrefix, GetCurrentProcessId(), u"-", std::uint32_t{++calls},
                           kNewFileSuffix);
}

bool WriteWhole(const std::filesystem::path& path, std::string_view bytes,
                SECURITY_ATTRIBUTES* security) {
    const UniqueHandle file(CreateFileW(path.c_str(), GENERIC_WRITE, 0, security, CREATE_ALWAYS,
                                        FILE_ATTRIBUTE_NORMAL, nullptr));
    DWORD written = 0;
    return IsValid(file) &&
           WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written,
                     nullptr) &&
           written == bytes.size() && FlushFileBuffers(file.get());
}

bool SwapIn(const std::filesystem::path& fresh, const std::filesystem::path& path, bool replace) {
    if (!replace) {
        return MoveFileExW(fresh.c_str(), path.c_str(), MOVEFILE_WRITE_THROUGH) != 0;
    }
    // A read-only mark would forbid it, so it goes first and comes back if the swap fails all the
    // same.
    const DWORD attributes = GetFileAttributesW(path.c_str());
    const bool readOnly =
        attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    if (readOnly) {
        SetFileAttributesW(path.c_str(), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
    }
    if (MoveFileExW(fresh.c_str(), path.c_str(),
                    MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
        return true;
    }
    if (readOnly) {
        const DWORD error = GetLastError();
        SetFileAttributesW(path.c_str(), attributes);
        SetLastError(error);
    }
    return false;
}

}  // namespace vbr
