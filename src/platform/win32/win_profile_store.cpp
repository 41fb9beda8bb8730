// SPDX-License-Identifier: MIT
#include "platform/win32/win_profile_store.h"

#include "platform/win32/windows.h"

#include "platform/win32/wide.h"

namespace vbr {
namespace {

constexpr DWORD kValueMax = 32768;  // UTF-16 units with the terminator

// A value that no file holds, to tell a missing key from an empty one.
constexpr const wchar_t* kMissing = L"\x1A\x1A";

}  // namespace

std::optional<std::u16string> WinProfileStore::ReadString(const std::filesystem::path& file,
                                                          std::u16string_view section,
                                                          std::u16string_view key) const {
    std::u16string value(kValueMax, u'\0');
    value.resize(GetPrivateProfileStringW(Wide(std::u16string(section)), Wide(std::u16string(key)),
                                          kMissing, Wide(value.data()), kValueMax, file.c_str()));
    if (value == FromWide(kMissing)) {
        return std::nullopt;
    }
    return value;
}

}  // namespace vbr
