// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "menu/menu_item_info.h"
#include "platform/strings.h"
#include "settings/settings.h"

namespace vbr {

// What the tray window is told when an extra command was chosen. Outside programs send these
// numbers too, so they never change.
inline constexpr std::int32_t kResultEditPhrases = -2;
inline constexpr std::int32_t kResultHistoryPane = -3;
inline constexpr std::int32_t kResultSelectionIntoPhrase = -4;
inline constexpr std::int32_t kResultSupport = -6;

// The result of a choice of that command; nothing for any other id.
std::optional<std::int32_t> ResultOfExtraCommand(std::uint32_t id);
inline bool IsExtraCommand(const CMenuItemInfo& info) {
    return info.Subject.Kind == MenuSubjectKind::ExtraCommand;
}

// Adds the commands that the user has not turned off, and takes away a separator at the menu's end.
void AddExtraCommands(const ExtMenuCommands& shown, bool historyShown,
                      std::u16string_view selectedText, const Strings& strings, PhraseMenu& menu);

}  // namespace vbr
