// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "platform/profile_store.h"

namespace vbr {

// Modifier bits of a hot key, as RegisterHotKey takes them.
inline constexpr std::uint16_t kModAlt = 1;
inline constexpr std::uint16_t kModControl = 2;
inline constexpr std::uint16_t kModShift = 4;
inline constexpr std::uint16_t kModWin = 8;

// Where the settings stand: the file beside the program and the copy in the user's profile.
struct SettingsFiles {
    std::filesystem::path Chosen;  // one of the two: the file that is written
    std::filesystem::path Local;
    std::filesystem::path User;
};

// The program's settings. Load replaces the fields; the main thread does it, other threads read
// single fields.
class CVBRSettings {
  public:
    CVBRSettings(const ProfileStore& profile, SettingsFiles files)
        : profile_(profile), files_(std::move(files)) {}

    std::u16string PhrasesDirectory;  // as stored: empty for the default, relative or absolute
    bool WriteLog = false;
    std::uint16_t HotkeyVk = 13;
    std::uint16_t HotkeyMods = kModAlt | kModControl;
    bool HotkeyDoubled = false;
    std::uint32_t DelayAutoLoadSeconds = 30;

    // Reads all keys. A missing key keeps the value in memory, one out of its limits is corrected.
    void Load();

    // A key of the section "Settings": from the local file when it stands there, else from the user
    // copy. A string value counts when it has 1 to 260 characters.
    std::int64_t GetInt(std::u16string_view key, std::int64_t fallback) const;
    std::u16string GetString(std::u16string_view key, std::u16string_view fallback) const;

    const SettingsFiles& Files() const { return files_; }

  private:
    const ProfileStore& profile_;
    SettingsFiles files_;
};

}  // namespace vbr
