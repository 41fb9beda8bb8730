// SPDX-License-Identifier: MIT
#include "shell/tray_menu.h"

#include "base/text.h"
#include "resources/menu_templates.h"
#include "resources/resource_ids.h"
#include "shell/tray_links.h"

namespace vbr {
namespace {

std::u16string WithCounts(std::u16string_view text, const CommandCounts& counts) {
    const std::size_t bracket = text.find(u'[');
    if (bracket != text.npos && bracket > 0) {
        text = text.substr(0, bracket);
    }
    return Concat(TrimRight(text, u" "), u" [", counts.Enabled, u"/", counts.Total, u"]");
}

bool IsChecked(int commandId, const TrayMenuState& state) {
    switch (commandId) {
        case kCmdEnableService:
            return state.ServiceInstalled;
        case kCmdSounds:
            return state.SoundsOn;
        case kCmdWriteLog:
            return state.LogOn;
        case kCmdHistoryPaneOnStart:
            return state.PaneOnStart;
        default:
            return false;
    }
}

void UpdateEntries(std::vector<MenuEntry>& entries, const TrayMenuState& state) {
    for (MenuEntry& entry : entries) {
        UpdateEntries(entry.Children, state);
        entry.Checked = IsChecked(entry.Id, state);
        entry.Grayed = entry.Id != 0 && !IsTrayCommandAvailable(entry.Id);
        if (entry.Id == kCmdRereadPhrases) {
            entry.Text = WithCounts(entry.Text, state.Phrases);
        }
    }
}

}  // namespace

bool IsTrayCommandAvailable(int commandId) {
    switch (commandId) {
        case kCmdEnableService:
        case kCmdRereadPhrases:
        case kCmdSounds:
        case kCmdWriteLog:
        case kCmdHistoryPaneOnStart:
        case kCmdEmailToUs:
        case kCmdExit:
            return true;
        default:
            return !LinkOfCommand(commandId).empty();
    }
}

std::vector<MenuEntry> BuildTrayMenu(const TrayMenuState& state, const Strings& strings) {
    const MenuTemplate* menu = MenuTemplateById(kMenuTray);
    std::vector<MenuEntry> entries = menu ? menu->Entries : std::vector<MenuEntry>();
    strings.TranslateMenu(entries);
    UpdateEntries(entries, state);
    return entries;
}

}  // namespace vbr
