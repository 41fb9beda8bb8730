// SPDX-License-Identifier: MIT
#include "platform/win32/win_profile_store.h"

#include "platform/win32/windows.h"

#include "platform/win32/handle.h"
#include "platform/win32/wide.h"

namespace vbr {
namespace {

constexpr DWORD kValueMax = 32768;  // UTF-16 units with the terminator

// A value that no file holds, to tell a missing key from an empty one.
constexpr const wchar_t* kMissing = L"\x1A\x1A";

bool SuitsTheSystem(std::string_view bytes) {
    const bool utf16 = bytes.starts_with("\xFF\xFE");
    return utf16 || (!bytes.starts_with("\xEF\xBB\xBF") && bytes.find('\0') == bytes.npos);
}

// While it lives, no other program can take the file for itself alone.
struct OpenProfile {
    explicit OpenProfile(const std::filesystem::path& path)
        : Handle(CreateFileW(path.c_str(), GENERIC_READ,
                             FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                             OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)) {
        if (IsValid(Handle)) {
            File = {true, IsWritable(path), ReadAll()};
        } else {
            const DWORD error = GetLastError();
            File.Exists = error != ERROR_FILE_NOT_FOUND && error != ERROR_PATH_NOT_FOUND &&
                          error != ERROR_INVALID_NAME;
        }
    }

    UniqueHandle Handle;
    ProfileFile File;

  private:
    static bool IsWritable(const std::filesystem::path& path) {
        const DWORD attributes = GetFileAttributesW(path.c_str());
        return attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_READONLY) == 0;
    }
    std::optional<std::string> ReadAll() const {
        LARGE_INTEGER size{};
        if (!GetFileSizeEx(Handle.get(), &size) || size.QuadPart > LONGLONG{kProfileMaxBytes}) {
            return std::nullopt;
        }
        std::string bytes(size.LowPart, '\0');
        DWORD read = 0;
        if (!ReadFile(Handle.get(), bytes.data(), size.LowPart, &read, nullptr)) {
            return std::nullopt;
        }
        bytes.resize(read);
        return bytes;
    }
};

// The system writes a file without a mark in the ANSI code page, which would lose what that lacks.
// Nobody else writes to the file meanwhile; one that has got content since it was looked at stays.
void StartUnicodeFile(const std::filesystem::path& file) {
    const UniqueHandle handle(CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                          OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size{};
    DWORD written = 0;
    if (IsValid(handle) && GetFileSizeEx(handle.get(), &size) && size.QuadPart == 0) {
        WriteFile(handle.get(), "\xFF\xFE", 2, &written, nullptr);
    }
}

}  // namespace

ProfileValue WinProfileStore::Read(const std::filesystem::path& file, std::u16string_view section,
                                   std::u16string_view key) const {
    const OpenProfile open(file);
    if (!open.File.Bytes || !SuitsTheSystem(*open.File.Bytes)) {
        return ReadProfile(open.File, section, key);
    }
    std::u16string value(kValueMax, u'\0');
    SetLastError(ERROR_SUCCESS);
    const DWORD length =
        GetPrivateProfileStringW(Wide(std::u16string(section)), Wide(std::u16string(key)), kMissing,
                                 Wide(value.data()), kValueMax, file.c_str());
    const DWORD error = GetLastError();
    value.resize(length);
    if (value != FromWide(kMissing)) {
        return {ProfileRead::Found, std::move(value)};
    }
    // Parts of the file can still be locked.
    const bool failed = error == ERROR_LOCK_VIOLATION || error == ERROR_SHARING_VIOLATION;
    return {failed ? ProfileRead::Failed : ProfileRead::Missing, {}};
}

bool WinProfileStore::WriteString(const std::filesystem::path& file, std::u16string_view section,
                                  std::u16string_view key, std::u16string_view value) {
    if (!IsProfileValue(value)) {
        return false;
    }
    ProfileFile found = OpenProfile(file).File;
    if (found.Writable && (found.Bytes ? found.Bytes->empty() : !found.Exists)) {
        StartUnicodeFile(file);
        found = OpenProfile(file).File;
    }
    if (!found.Writable || !found.Bytes) {
        return false;
    }
    if (!SuitsTheSystem(*found.Bytes)) {
        return texts_.WriteString(file, section, key, value);
    }
    return WritePrivateProfileStringW(Wide(std::u16string(section)), Wide(std::u16string(key)),
                                      Wide(std::u16string(value)), file.c_str()) != 0;
}

}  // namespace vbr
