// SPDX-License-Identifier: MIT
#include "platform/menu_data.h"

namespace vbr {

const MenuEntry* FindCommand(const std::vector<MenuEntry>& entries, int commandId) {
    if (commandId == 0) {
        return nullptr;
    }
    for (const MenuEntry& entry : entries) {
        if (entry.IsSubMenu()) {
            if (const MenuEntry* found = FindCommand(entry.Children, commandId)) {
                return found;
            }
        } else if (entry.Id == commandId) {
            return &entry;
        }
    }
    return nullptr;
}

}  // namespace vbr
