// SPDX-License-Identifier: MIT
#include "platform/win32/win_file_access.h"

#include "platform/win32/windows.h"

#include <shlobj.h>
#include <vector>

#include "base/text.h"
#include "platform/win32/handle.h"
#include "platform/win32/wide.h"

namespace vbr {
namespace {

// The access rights that the generic ones stand for on files.
constexpr GENERIC_MAPPING kFileMapping = {0x120089, 0x120116, 0x1200A0, 0x1F01FF};

std::u16string KnownFolder(int id) {
    wchar_t path[MAX_PATH];
    return SHGetFolderPathW(nullptr, id, nullptr, SHGFP_TYPE_CURRENT, path) == S_OK
               ? std::u16string(FromWide(path))
               : std::u16string();
}

UniqueHandle ImpersonationOf(HANDLE primary) {
    HANDLE token = nullptr;
    return UniqueHandle(DuplicateToken(primary, SecurityImpersonation, &token) ? token : nullptr);
}

UniqueHandle OwnToken() {
    HANDLE token = nullptr;
    OpenProcessToken(GetCurrentProcess(), TOKEN_DUPLICATE | TOKEN_QUERY, &token);
    return UniqueHandle(token);
}

// What the system makes of an administrator's token for the programs that the user just starts.
UniqueHandle UsualToken() {
    const UniqueHandle own = OwnToken();
    HANDLE usual = nullptr;
    return UniqueHandle(own && CreateRestrictedToken(own.get(), LUA_TOKEN, 0, nullptr, 0, nullptr,
                                                     0, nullptr, &usual)
                            ? usual
                            : nullptr);
}

// Whether the token's rights suffice to write the file or folder; nothing when that can't be told.
std::optional<bool> MayWrite(const std::u16string& name, HANDLE token) {
    constexpr SECURITY_INFORMATION kWhat =
        OWNER_SECURITY_INFORMATION | GROUP_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION;
    DWORD size = 0;
    GetFileSecurityW(Wide(name), kWhat, nullptr, 0, &size);
    std::vector<BYTE> descriptor(size);
    const UniqueHandle impersonation = ImpersonationOf(token);
    if (size == 0 || !impersonation ||
        !GetFileSecurityW(Wide(name), kWhat, descriptor.data(), size, &size)) {
        return std::nullopt;
    }
    GENERIC_MAPPING mapping = kFileMapping;
    DWORD wanted = GENERIC_WRITE;
    MapGenericMask(&wanted, &mapping);
    PRIVILEGE_SET privileges{};
    DWORD privilegesSize = sizeof privileges;
    DWORD granted = 0;
    BOOL allowed = FALSE;
    return AccessCheck(descriptor.data(), impersonation.get(), wanted, &mapping, &privileges,
                       &privilegesSize, &granted, &allowed) &&
           allowed;
}

}  // namespace

DriveKind WinFileAccess::KindOfDrive(std::u16string_view root) const {
    return static_cast<DriveKind>(GetDriveTypeW(Wide(std::u16string(root))));
}

bool WinFileAccess::FileExists(std::u16string_view path) const {
    const DWORD attributes = GetFileAttributesW(Wide(std::u16string(path)));
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool WinFileAccess::CanWrite(std::u16string_view path) const {
    const std::u16string name(path);
    const DWORD attributes = GetFileAttributesW(Wide(name));
    if (attributes == INVALID_FILE_ATTRIBUTES ||
        ((attributes & FILE_ATTRIBUTE_READONLY) && !(attributes & FILE_ATTRIBUTE_DIRECTORY))) {
        return false;
    }
    return MayWrite(name, OwnToken().get()).value_or(false);
}

bool WinFileAccess::CanOthersWrite(std::u16string_view path) const {
    const UniqueHandle usual = UsualToken();
    return !usual || MayWrite(std::u16string(path), usual.get()).value_or(true);
}

bool WinFileAccess::CreateEmptyFile(std::u16string_view path) {
    const UniqueHandle file(CreateFileW(Wide(std::u16string(path)), GENERIC_READ,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, CREATE_NEW,
                                        FILE_ATTRIBUTE_SYSTEM, nullptr));
    return IsValid(file);
}

bool WinFileAccess::CreateFolder(std::u16string_view path) {
    return CreateDirectoryW(Wide(std::u16string(path)), nullptr) != 0;
}

std::u16string WinFileAccess::UserProfileFolder() const {
    return KnownFolder(CSIDL_PROFILE);
}

std::u16string WinFileAccess::ApplicationDataFolder() const {
    return KnownFolder(CSIDL_APPDATA);
}

std::optional<std::u16string> WinFileAccess::EnvironmentVariable(std::u16string_view name) const {
    const std::u16string key(name);
    const DWORD size = GetEnvironmentVariableW(Wide(key), nullptr, 0);
    if (size == 0) {
        return std::nullopt;
    }
    std::u16string value(size, u'\0');
    value.resize(GetEnvironmentVariableW(Wide(key), Wide(value.data()), size));
    return value;
}

}  // namespace vbr
