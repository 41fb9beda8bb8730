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
    bool HistoryNotSaved = false;  // for some time
    std::u16string HotkeyName;
    std::u16string PhrasesFolder;
    CommandCounts Phrases;
};

// How the tray icon is changed.
enum class TrayIconMode { Add = 0, ModifyWithBalloon = 1, Modify = 2 };

// What the icon shows; the two info texts are its balloon.
struct TrayIconContent {
    int IconId = 0;
    std::u16string Tip;
    std::u16string InfoTitle;
    std::u16string Info;
    bool Warning = false;
};

// Name, version and whether the service is on.
std::u16string TrayFirstLine(const TrayState& state, const Strings& strings);

// Hot key, folder with the counts, and a hint, a line each.
std::u16string GetTrayInfoText(const TrayState& state, const Strings& strings);

// The text cut to kTrayTipMax: whole lines go from the end first.
std::u16string CutToTip(std::u16string text);
// First line and details, cut so.
std::u16string TrayTip(std::u16string_view firstLine, std::u16string_view details);

// Icon, tip and balloon for the state; `balloonText` joins the balloon's title.
TrayIconContent MakeTrayIconContent(const TrayState& state, std::u16string_view balloonText,
                                    bool warning, const Strings& strings);

}  // namespace vbr
