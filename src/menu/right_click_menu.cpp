// SPDX-License-Identifier: MIT
#include "menu/right_click_menu.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "base/text.h"
#include "menu/extra_commands.h"
#include "resources/menu_templates.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

constexpr std::size_t kTextInSearch = 70;

struct RightCommand {
    int Command;
    RightMenuCode Code;
};

constexpr RightCommand kCommands[] = {
    {kCmdCopyPlainText, RightMenuCode::Copy},
    {kCmdOpenAsUrl, RightMenuCode::OpenAsUrl},
    {kCmdEditItem, RightMenuCode::Edit},
    {kCmdOpenWith, RightMenuCode::OpenWith},
    {kCmdMenuSearchGoogle, RightMenuCode::SearchGoogle},
    {kCmdMenuSearchYandex, RightMenuCode::SearchYandex},
    {kCmdMenuSearchMsdn, RightMenuCode::SearchMsdn},
    {kCmdMenuSearchWikipedia, RightMenuCode::SearchWikipedia},
};
constexpr int kSearches[] = {kCmdMenuSearchGoogle, kCmdMenuSearchYandex, kCmdMenuSearchWikipedia,
                             kCmdMenuSearchMsdn};

// On one line, and no unit of it means anything to the menu.
std::u16string SearchText(std::u16string_view text) {
    std::u16string line(Trim(text, u" \t\r\n"));
    for (const std::u16string_view end : {u"\r\n", u"\r", u"\n", u"\t"}) {
        ReplaceAll(line, end, u" ");
    }
    if (line.size() > kTextInSearch) {
        line = Concat(CutUnits(line, kTextInSearch), u"…");
    }
    ReplaceAll(line, u"&", u"&&");
    return line;
}

MenuEntry Entry(int id, std::u16string text, bool grayed) {
    MenuEntry entry;
    entry.Id = id;
    entry.Text = std::move(text);
    entry.Grayed = grayed;
    return entry;
}

}  // namespace

bool HasRightClickMenu(const CMenuItemInfo& info) {
    return !info.IsSeparator() && !info.IsPopup() && !IsExtraCommand(info);
}

std::vector<MenuEntry> BuildRightClickMenu(const CMenuItemInfo& info, const Strings& strings) {
    const MenuTemplate* rows = MenuTemplateById(kMenuHistoryRow);
    std::vector<MenuEntry> translated = rows ? rows->Entries : std::vector<MenuEntry>();
    strings.TranslateMenu(translated);
    const auto textOf = [&translated](int id) {
        const MenuEntry* found = FindCommand(translated, id);
        return found ? found->Text : std::u16string();
    };
    std::vector<MenuEntry> menu = {
        Entry(kCmdCopyPlainText, strings.LoadString(kStrCopy), false),
        Entry(kCmdOpenAsUrl, textOf(kCmdOpenAsUrl), info.Bitmap),
        {},
        Entry(kCmdEditItem, strings.LoadString(kStrEdit), !info.History),
        Entry(kCmdOpenWith, textOf(kCmdOpenWith), !info.History),
        {},
    };
    const std::u16string searched = SearchText(info.ExpandedText);
    for (const int search : kSearches) {
        menu.push_back(
            Entry(search, Concat(strings.LoadString(search), u" [", searched, u"]"), info.Bitmap));
    }
    return menu;
}

std::optional<RightMenuCode> RightMenuCodeOf(int commandId) {
    const auto found = std::find_if(
        std::begin(kCommands), std::end(kCommands),
        [commandId](const RightCommand& command) { return command.Command == commandId; });
    return found == std::end(kCommands) ? std::nullopt : std::optional(found->Code);
}

bool ClosesPhraseMenu(RightMenuCode code) {
    return code >= RightMenuCode::SearchGoogle;
}

}  // namespace vbr
