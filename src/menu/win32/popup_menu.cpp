// SPDX-License-Identifier: MIT
#include "menu/win32/popup_menu.h"

#include "base/text.h"
#include "menu/win32/menu_tracker.h"
#include "platform/win32/auto_foreground_window.h"
#include "platform/win32/menu_handle.h"

namespace vbr {
namespace {

// An item as the system's menu shows it: an ampersand is text here, not an access key.
MenuEntry ToEntry(const PhraseMenuItem& item) {
    MenuEntry entry;
    entry.Id = static_cast<int>(item.Info.CommandId);
    entry.Text = item.Info.Label;
    if (!item.Info.RightText.empty()) {
        entry.Text += Concat(u"\t", item.Info.RightText);
    }
    ReplaceAll(entry.Text, u"&", u"&&");
    entry.Grayed = item.Grayed;
    entry.Default = item.Info.Mark;
    for (const PhraseMenuItem& child : item.Children) {
        entry.Children.push_back(ToEntry(child));
    }
    return entry;
}

UniqueMenu MakePopup(const PhraseMenu& items) {
    std::vector<MenuEntry> entries;
    for (const PhraseMenuItem& item : items) {
        entries.push_back(ToEntry(item));
    }
    return MakePopupMenu(entries);
}

POINT MenuPoint(std::optional<ScreenPoint> at) {
    POINT point{};
    if (at) {
        point = {at->X, at->Y};
    } else {
        GetCursorPos(&point);
    }
    return point;
}

}  // namespace

std::uint32_t PopupMenuPresenter::Show(const PhraseMenu& items, std::optional<ScreenPoint> at) {
    const UniqueMenu menu = MakePopup(items);
    const POINT point = MenuPoint(at);
    CMenuTracker tracker;
    const HWND owner = tracker.Create();
    menu_ = menu.get();
    int choice = 0;
    {
        const CAutoForegroundWindow front(foreground_);
        // The pointer stands at the menu's corner, ready to choose.
        SetCursorPos(point.x, point.y);
        choice = TrackPopupMenuEx(menu.get(), TPM_RETURNCMD, point.x, point.y, owner, nullptr);
    }
    menu_ = nullptr;
    return static_cast<std::uint32_t>(choice);
}

}  // namespace vbr
