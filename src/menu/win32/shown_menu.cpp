// SPDX-License-Identifier: MIT
#include "menu/win32/shown_menu.h"

#include <algorithm>
#include <utility>

#include "platform/win32/wide.h"

namespace vbr {

ShownMenu::ShownMenu(PhraseMenu menu) {
    root_ = MakePopup(menu, true);
}

UniqueMenu ShownMenu::MakePopup(PhraseMenu& items, bool isRoot) {
    UniqueMenu menu(CreatePopupMenu());
    std::vector<const CMenuItemInfo*> shown;
    shown.reserve(items.size());
    for (PhraseMenuItem& item : items) {
        MenuItemBlock& block = blocks_.emplace_back();
        block.InRoot = isRoot;
        block.Info = std::move(item.Info);
        std::u16string& name = block.Info.IsSeparator() ? block.Info.RightText : block.Info.Label;
        block.Accessible = {static_cast<DWORD>(MSAA_MENU_SIG), static_cast<DWORD>(name.size()),
                            Wide(name.data())};
        if (!Append(menu.get(), item, block)) {
            blocks_.pop_back();
            continue;
        }
        addresses_.insert(&block);
        shown.push_back(&block.Info);
        if (isRoot) {
            rootBlocks_.push_back(&block);
        }
    }
    items_[menu.get()] = std::move(shown);
    return menu;
}

bool ShownMenu::Append(HMENU menu, PhraseMenuItem& item, MenuItemBlock& block) {
    const auto data = reinterpret_cast<LPCWSTR>(&block);
    UINT flags = MF_OWNERDRAW;
    flags |= item.Grayed ? MF_GRAYED : 0U;
    if (block.Info.IsSeparator()) {
        return AppendMenuW(menu, flags | MF_SEPARATOR, 0, data) != 0;
    }
    if (!block.Info.IsPopup()) {
        return AppendMenuW(menu, flags, block.Info.CommandId, data) != 0;
    }
    UniqueMenu popup = MakePopup(item.Children, false);
    if (!AppendMenuW(menu, flags | MF_POPUP, reinterpret_cast<UINT_PTR>(popup.get()), data)) {
        return false;
    }
    [[maybe_unused]] const HMENU ownedByMenu = popup.release();
    return true;
}

MenuItemBlock* ShownMenu::BlockAt(ULONG_PTR address) const {
    const auto found = addresses_.find(reinterpret_cast<MenuItemBlock*>(address));
    return found == addresses_.end() ? nullptr : *found;
}

const std::vector<const CMenuItemInfo*>* ShownMenu::ItemsOf(HMENU menu) const {
    const auto found = items_.find(menu);
    return found == items_.end() ? nullptr : &found->second;
}

const CMenuItemInfo* ShownMenu::Find(HMENU menu, std::uint32_t id) const {
    const auto* items = ItemsOf(menu);
    if (!items) {
        return nullptr;
    }
    const auto found = std::find_if(items->begin(), items->end(), [id](const CMenuItemInfo* info) {
        return info->CommandId == id && !info->IsPopup() && !info->IsSeparator();
    });
    return found == items->end() ? nullptr : *found;
}

MenuSubject ShownMenu::SubjectOf(std::uint32_t id) const {
    const auto found = std::find_if(blocks_.begin(), blocks_.end(), [id](const auto& block) {
        return block.Info.CommandId == id && !block.Info.IsPopup() && !block.Info.IsSeparator();
    });
    return id == 0 || found == blocks_.end() ? MenuSubject() : found->Info.Subject;
}

int ShownMenu::LayOutRoot() {
    int height = 0;
    for (MenuItemBlock* block : rootBlocks_) {
        block->Above = height;
        height += block->Height;
    }
    return height;
}

void ShownMenu::Cleanup() {
    root_.reset();
    items_.clear();
    rootBlocks_.clear();
    addresses_.clear();
    blocks_.clear();
}

}  // namespace vbr
