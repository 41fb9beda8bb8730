// SPDX-License-Identifier: MIT
#include "platform/win32/menu_handle.h"

#include "platform/win32/wide.h"

namespace vbr {
namespace {

UINT StateOf(const MenuEntry& entry) {
    UINT state = MFS_ENABLED;
    state |= entry.Grayed ? MFS_GRAYED : 0U;
    state |= entry.Checked ? MFS_CHECKED : 0U;
    state |= entry.Default ? MFS_DEFAULT : 0U;
    return state;
}

// All but a sub-menu; `text` is the entry's and outlives the call that takes this.
MENUITEMINFOW InfoOf(const MenuEntry& entry, std::u16string& text) {
    text = entry.Text;
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE | MIIM_STATE | MIIM_ID | MIIM_STRING;
    info.fType = entry.IsSeparator() ? UINT{MFT_SEPARATOR} : UINT{MFT_STRING};
    info.fType |= entry.RadioMark ? MFT_RADIOCHECK : 0U;
    info.fState = StateOf(entry);
    info.wID = static_cast<UINT>(entry.Id);
    info.dwTypeData = Wide(text.data());
    return info;
}

void AppendEntry(HMENU menu, const MenuEntry& entry) {
    std::u16string text;
    MENUITEMINFOW info = InfoOf(entry, text);
    UniqueMenu popup;
    if (entry.IsSubMenu()) {
        popup = MakePopupMenu(entry.Children);
        info.fMask |= MIIM_SUBMENU;
        info.hSubMenu = popup.get();
    }
    const auto end = static_cast<UINT>(GetMenuItemCount(menu));
    if (InsertMenuItemW(menu, end, TRUE, &info)) {
        [[maybe_unused]] const HMENU ownedByMenu = popup.release();
    }
}

}  // namespace

UniqueMenu MakePopupMenu(const std::vector<MenuEntry>& entries) {
    UniqueMenu menu(CreatePopupMenu());
    for (const MenuEntry& entry : entries) {
        AppendEntry(menu.get(), entry);
    }
    return menu;
}

void UpdatePopupMenu(HMENU menu, const std::vector<MenuEntry>& entries) {
    const auto count = static_cast<int>(entries.size());
    for (int i = GetMenuItemCount(menu); i > count; --i) {
        DeleteMenu(menu, static_cast<UINT>(i - 1), MF_BYPOSITION);
    }
    for (int i = 0; i < count; ++i) {
        if (i >= GetMenuItemCount(menu)) {
            AppendEntry(menu, entries[static_cast<std::size_t>(i)]);
            continue;
        }
        std::u16string text;
        MENUITEMINFOW info = InfoOf(entries[static_cast<std::size_t>(i)], text);
        MENUITEMINFOW before{};
        before.cbSize = sizeof before;
        before.fMask = MIIM_STATE;
        GetMenuItemInfoW(menu, static_cast<UINT>(i), TRUE, &before);
        info.fState |= before.fState & MFS_HILITE;
        SetMenuItemInfoW(menu, static_cast<UINT>(i), TRUE, &info);
    }
}

}  // namespace vbr
