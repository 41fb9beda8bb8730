// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <oleacc.h>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "menu/menu_item_info.h"
#include "platform/win32/menu_handle.h"

namespace vbr {

// The data of an owner-drawn item. Screen readers look for its head.
struct MenuItemBlock {
    MSAAMENUINFO Accessible{};
    CMenuItemInfo Info;
    bool InRoot = false;
    int Height = 0;  // as measured
    int Above = 0;   // heights of the items before it in the root menu
};

// The system's menu made from plain data, every item of it owner-drawn, and the items' blocks.
class ShownMenu {
  public:
    // An item that the system refuses is left out.
    explicit ShownMenu(PhraseMenu menu);

    HMENU Root() const { return root_.get(); }

    // The block at the address that a message brought, null for any other address.
    MenuItemBlock* BlockAt(ULONG_PTR address) const;

    // The items of the menu or one of its popups; null for any other menu.
    const std::vector<const CMenuItemInfo*>* ItemsOf(HMENU menu) const;
    // The item with that id in the same menu; null when there is none.
    const CMenuItemInfo* Find(HMENU menu, std::uint32_t id) const;

    // What the item with that number, in whatever popup, stands for; nothing for 0.
    MenuSubject SubjectOf(std::uint32_t id) const;

    // Sums up the measured heights; the height of the root menu.
    int LayOutRoot();

    // The blocks are gone afterwards, and the menu with them.
    void Cleanup();

  private:
    UniqueMenu MakePopup(PhraseMenu& items, bool isRoot);
    bool Append(HMENU menu, PhraseMenuItem& item, MenuItemBlock& block);

    std::deque<MenuItemBlock> blocks_;
    std::unordered_set<MenuItemBlock*> addresses_;  // of the blocks
    std::vector<MenuItemBlock*> rootBlocks_;
    std::unordered_map<HMENU, std::vector<const CMenuItemInfo*>> items_;
    UniqueMenu root_;
};

}  // namespace vbr
