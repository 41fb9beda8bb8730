// SPDX-License-Identifier: MIT
#include "shell/tray_menu.h"

#include <algorithm>
#include <iterator>

#include "base/text.h"
#include "resources/menu_templates.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

// A sub-menu with fewer entries keeps its separators.
constexpr std::size_t kFewEntries = 5;

std::u16string WithCounts(std::u16string_view text, const CommandCounts& counts) {
    const std::size_t bracket = text.find(u'[');
    if (bracket != text.npos && bracket > 0) {
        text = text.substr(0, bracket);
    }
    return Concat(TrimRight(text, u" "), u" [", counts.Enabled, u"/", counts.Total, u"]");
}

}  // namespace

bool IsHistoryMenu(const std::vector<MenuEntry>& entries) {
    return std::ranges::find(entries, kCmdKeepHistory, &MenuEntry::Id) != entries.end();
}

std::vector<MenuEntry> TrayMenu::Entries(bool withClips) {
    const MenuTemplate* menu = MenuTemplateById(kMenuTray);
    std::vector<MenuEntry> entries = menu ? menu->Entries : std::vector<MenuEntry>();
    with_.Texts.TranslateMenu(entries);
    Update(entries, withClips);
    return entries;
}

void TrayMenu::Update(std::vector<MenuEntry>& entries, bool withClips) {
    for (MenuEntry& entry : entries) {
        Update(entry.Children, withClips);
        entry.Checked = with_.Commands.IsChecked(entry.Id);
        entry.Grayed = entry.Id != 0 && !with_.Commands.IsAvailable(entry.Id);
        if (entry.Id == kCmdRereadPhrases) {
            entry.Text = WithCounts(entry.Text, with_.Service.CountPhrases());
        } else if (entry.Id == kCmdStartWithWindows && with_.Settings.DelayAutoLoadSeconds > 0) {
            entry.Text += Concat(u" (+", with_.Settings.DelayAutoLoadSeconds, u"sec)");
        } else if (IsHistoryMenu(entry.Children)) {
            UpdateHistory(entry);
            if (withClips) {
                AddClips(entry);
            }
        }
    }
}

void TrayMenu::UpdateHistory(MenuEntry& history) {
    history.Text +=
        Concat(u" [", with_.History.GetCount(), u"/", with_.Settings.ClipboardHistoryMax, u"]");
    history.Checked = with_.History.IsKeeping();
    if (history.Children.size() >= kFewEntries) {
        std::erase_if(history.Children, [](const MenuEntry& entry) { return entry.IsSeparator(); });
    }
}

void TrayMenu::AddClips(MenuEntry& history) {
    std::vector<MenuEntry> clips = with_.Clips.Entries();
    if (!clips.empty()) {
        history.Children.emplace_back();
        std::ranges::move(clips, std::back_inserter(history.Children));
    }
}

}  // namespace vbr
