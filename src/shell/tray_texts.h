// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "phrases/command_tree.h"
#include "platform/strings.h"

namespace vbr {

// The longest tip of the notification area, in UTF-16 units.
inline constexpr std::size_t kTrayTipMax = 126;

// What the tray icon tells.
struct TrayState {
    bool ServiceInstalled = false;
    bool Elevated = false;
    std::u16string HotkeyName;
    std::u16string PhrasesFolder;
    CommandCounts Phrases;
};

// Name, version and whether the service is on.
std::u16string TrayFirstLine(const TrayState& state, const Strings& strings);

// Hot key, folder with the counts, and a hint, a line each.
std::u16string GetTrayInfoText(const TrayState& state, const Strings& strings);

// First line and details, cut to kTrayTipMax: whole lines go from the end first.
std::u16string TrayTip(std::u16string_view firstLine, std::u16string_view details);

}  // namespace vbr
