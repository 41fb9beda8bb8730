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

void UpdateEntries(std::vector<MenuEntry>& entries, const TrayMenuState& state) {
    for (MenuEntry& entry : entries) {
        UpdateEntries(entry.Children, state);
        if (entry.Id == kCmdEnableService) {
            entry.Checked = state.ServiceInstalled;
        } else if (entry.Id == kCmdRereadPhrases) {
            entry.Text = WithCounts(entry.Text, state.Phrases);
        }
        entry.Grayed = entry.Id != 0 && !IsTrayCommandAvailable(entry.Id);
    }
}

}  // namespace

bool IsTrayCommandAvailable(int commandId) {
    return commandId == kCmdEnableService || commandId == kCmdRereadPhrases ||
           commandId == kCmdExit;
}

std::vector<MenuEntry> BuildTrayMenu(const TrayMenuState& state, const Strings& strings) {
    const MenuTemplate* menu = MenuTemplateById(kMenuTray);
    std::vector<MenuEntry> entries = menu ? menu->Entries : std::vector<MenuEntry>();
    strings.TranslateMenu(entries);
    UpdateEntries(entries, state);
    return entries;
}

}  // namespace vbr
