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

// The system writes a file without a mark in the ANSI code page, which would lose what that lacks.
void StartUnicodeFile(const std::filesystem::path& file) {
    const UniqueHandle handle(CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                                          FILE_ATTRIBUTE_NORMAL, nullptr));
    DWORD written = 0;
    if (IsValid(handle)) {
        WriteFile(handle.get(), "\xFF\xFE", 2, &written, nullptr);
    }
}

}  // namespace

std::optional<std::u16string> WinProfileStore::ReadString(const std::filesystem::path& file,
                                                          std::u16string_view section,
                                                          std::u16string_view key) const {
    const ProfileFile found = InspectProfile(file);
    if (!found.Bytes) {
        return std::nullopt;
    }
    if (!SuitsTheSystem(*found.Bytes)) {
        return ProfileText(*found.Bytes).Get(section, key);
    }
    std::u16string value(kValueMax, u'\0');
    value.resize(GetPrivateProfileStringW(Wide(std::u16string(section)), Wide(std::u16string(key)),
                                          kMissing, Wide(value.data()), kValueMax, file.c_str()));
    if (value == FromWide(kMissing)) {
        return std::nullopt;
    }
    return value;
}

bool WinProfileStore::WriteString(const std::filesystem::path& file, std::u16string_view section,
                                  std::u16string_view key, std::u16string_view value) {
    const ProfileFile found = InspectProfile(file);
    if (!found.Writable || (found.Exists && !found.Bytes) || !IsProfileValue(value)) {
        return false;
    }
    if (found.Bytes && !SuitsTheSystem(*found.Bytes)) {
        return texts_.WriteString(file, section, key, value);
    }
    if (!found.Bytes || found.Bytes->empty()) {
        StartUnicodeFile(file);
    }
    return WritePrivateProfileStringW(Wide(std::u16string(section)), Wide(std::u16string(key)),
                                      Wide(std::u16string(value)), file.c_str()) != 0;
}

}  // namespace vbr
