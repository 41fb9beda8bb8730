// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/strings.h"
#include "settings/settings.h"

namespace vbr {

// The settings that the editor shows.
struct SettingsForm {
    std::uint16_t HotkeyVk = 0;
    std::uint16_t HotkeyMods = 0;
    bool Doubled = false;
    std::u16string PhrasesFolder;  // as it is stored, empty for the default one
    std::u16string Language;       // file name, empty for English
    std::int32_t PasteMethod = 0;
    bool Sounds = false;
    bool ToolTips = false;
    bool BalloonOnHotkey = false;
    bool KeepHistory = false;
    bool SaveHistory = false;
    bool HistoryInMenu = false;
    std::uint32_t HistoryMax = 0;
    bool RecentFirst = false;
    bool CheckForUpdates = false;

    bool operator==(const SettingsForm&) const = default;
};

// The most items that the history is allowed to have here.
inline constexpr std::uint32_t kMostHistoryItems = 10'000;

SettingsForm FormOf(const CVBRSettings& settings);

// Why the form can't be taken, for the user; nothing when it can.
std::optional<std::u16string> ProblemOf(const SettingsForm& form, const Strings& texts);

// Saves what the form changes of `shown`; what another program has changed of the rest meanwhile
// stays. False when the settings can't be read or written now.
bool SaveForm(const SettingsForm& form, const SettingsForm& shown, CVBRSettings& settings);

}  // namespace vbr
