// SPDX-License-Identifier: MIT
#include "platform/win32/win_file_store.h"

#include "platform/win32/handle.h"
#include "platform/win32/win_error_text.h"
#include "platform/win32/world_security.h"

namespace vbr {
namespace {

// Not an extension of ours, so that a half-written file is never taken for a phrase.
constexpr const wchar_t* kNewSuffix = L".new";

SystemError LastSystemError() {
    const WinErrorText errors;
    const std::uint32_t code = errors.LastError();
    return {code, errors.TextOf(code)};
}

bool WriteWhole(const std::filesystem::path& path, std::string_view bytes) {
    const UniqueHandle file(CreateFileW(path.c_str(), GENERIC_WRITE, 0, WorldSecurity(),
                                        CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    DWORD written = 0;
    return IsValid(file) &&
           WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written,
                     nullptr) &&
           written == bytes.size() && FlushFileBuffers(file.get());
}

// Swaps the new file in. A read-only mark of the old one would forbid that, so it goes first and
// comes back if the swap fails all the same.
bool SwapIn(const std::filesystem::path& fresh, const std::filesystem::path& path) {
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

}  // namespace

std::optional<std::string> WinFileStore::Read(const std::filesystem::path& path) {
    const UniqueHandle file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size{};
    if (!IsValid(file) || !GetFileSizeEx(file.get(), &size) || size.HighPart != 0) {
        return std::nullopt;
    }
    std::string bytes(size.LowPart, '\0');
    DWORD read = 0;
    if (!ReadFile(file.get(), bytes.data(), size.LowPart, &read, nullptr) || read != size.LowPart) {
        return std::nullopt;
    }
    return bytes;
}

std::optional<SystemError> WinFileStore::Replace(const std::filesystem::path& path,
                                                 std::string_view bytes) {
    std::filesystem::path fresh = path;
    fresh += kNewSuffix;
    if (WriteWhole(fresh, bytes) && SwapIn(fresh, path)) {
        return std::nullopt;
    }
    const SystemError error = LastSystemError();
    DeleteFileW(fresh.c_str());
    return error;
}

}  // namespace vbr
