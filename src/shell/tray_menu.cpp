// SPDX-License-Identifier: MIT
#include "shell/tray_menu.h"

#include "base/text.h"
#include "resources/menu_templates.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

std::u16string WithCounts(std::u16string_view text, const CommandCounts& counts) {
    const std::size_t bracket = text.find(u'[');
    if (bracket != text.npos && bracket > 0) {
        text = text.substr(0, bracket);
    }
    return Concat(TrimRight(text, u" "), u" [", counts.Enabled, u"/", counts.Total, u"]");
}

void UpdateEntries(std::vector<MenuEntry>& entries, const TrayCommands& commands,
                   const CommandCounts& phrases) {
    for (MenuEntry& entry : entries) {
        UpdateEntries(entry.Children, commands, phrases);
        entry.Checked = commands.IsChecked(entry.Id);
        entry.Grayed = entry.Id != 0 && !commands.IsAvailable(entry.Id);
        if (entry.Id == kCmdRereadPhrases) {
            entry.Text = WithCounts(entry.Text, phrases);
        }
    }
}

}  // namespace

std::vector<MenuEntry> BuildTrayMenu(const TrayCommands& commands, const CommandCounts& phrases,
                                     const Strings& strings) {
    const MenuTemplate* menu = MenuTemplateById(kMenuTray);
    std::vector<MenuEntry> entries = menu ? menu->Entries : std::vector<MenuEntry>();
    strings.TranslateMenu(entries);
    UpdateEntries(entries, commands, phrases);
    return entries;
}

}  // namespace vbr
