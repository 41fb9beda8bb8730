// SPDX-License-Identifier: MIT
#include "platform/win32/new_file.h"

#include <atomic>
#include <cstdint>
#include <vector>

#include "base/text.h"
#include "platform/stamped_files.h"
#include "platform/win32/handle.h"

namespace vbr {
namespace {

// What the owner of a file has allowed is allowed of the one that takes its place.
void TakeRightsOver(const std::filesystem::path& from, const std::filesystem::path& to) {
    DWORD size = 0;
    GetFileSecurityW(from.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::vector<BYTE> rights(size);
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    if (size == 0 ||
        !GetFileSecurityW(from.c_str(), DACL_SECURITY_INFORMATION, rights.data(), size, &size) ||
        !GetSecurityDescriptorControl(rights.data(), &control, &revision)) {
        return;
    }
    const DWORD inheritance = (control & SE_DACL_PROTECTED) != 0
                                  ? PROTECTED_DACL_SECURITY_INFORMATION
                                  : UNPROTECTED_DACL_SECURITY_INFORMATION;
    SetFileSecurityW(to.c_str(), DACL_SECURITY_INFORMATION | inheritance, rights.data());
}

}  // namespace

std::filesystem::path NewFileIn(const std::filesystem::path& folder) {
    static std::atomic<std::uint32_t> calls;
    return folder / Concat(kNewFilePrefix, GetCurrentProcessId(), u"-", std::uint32_t{++calls},
                           kNewFileSuffix);
}

bool WriteWhole(const std::filesystem::path& path, std::string_view bytes) {
    const UniqueHandle file(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
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
    if (attributes != INVALID_FILE_ATTRIBUTES) {
        TakeRightsOver(path, fresh);
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
