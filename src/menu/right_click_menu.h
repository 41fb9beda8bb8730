// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "menu/menu_item_info.h"
#include "platform/menu_data.h"
#include "platform/strings.h"

namespace vbr {

// What the tray window is asked to do with an item. Outside programs send these numbers too.
enum class RightMenuCode : std::uint32_t {
    Copy = 0,
    OpenAsUrl = 1,
    Edit = 2,
    OpenWith = 3,
    SearchGoogle = 4,
    SearchYandex = 5,
    SearchMsdn = 6,
    SearchWikipedia = 7,
};
inline constexpr std::uint32_t kLastRightMenuCode = 7;

// Whether a right click on the item opens a menu.
bool HasRightClickMenu(const CMenuItemInfo& info);

// The menu that a right click opens. Its entries have the numbers of commands.
std::vector<MenuEntry> BuildRightClickMenu(const CMenuItemInfo& info, const Strings& strings);

// What the command of that menu asks for; nothing for any other number.
std::optional<RightMenuCode> RightMenuCodeOf(int commandId);

// Whether the phrase menu closes before the command is carried out.
bool ClosesPhraseMenu(RightMenuCode code);

}  // namespace vbr
