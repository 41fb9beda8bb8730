// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace vbr {

// One entry of a menu as plain data: a command, a sub-menu or a separator.
struct MenuEntry {
    int Id = 0;
    std::u16string Text;              // "&" marks the access key, a tab parts off the shortcut
    std::vector<MenuEntry> Children;  // a sub-menu's entries, its id is 0
    bool Default = false;
    bool Checked = false;
    bool RadioMark = false;  // the form of the mark of a checked entry
    bool Grayed = false;

    bool IsSubMenu() const { return !Children.empty(); }
    bool IsSeparator() const { return Id == 0 && Text.empty() && Children.empty(); }

    bool operator==(const MenuEntry&) const = default;
};

// A menu of the program's resources.
struct MenuTemplate {
    int Id = 0;
    std::vector<MenuEntry> Entries;
};

// The command with that id, searched depth first; null when there is none.
const MenuEntry* FindCommand(const std::vector<MenuEntry>& entries, int commandId);

}  // namespace vbr
