// SPDX-License-Identifier: MIT
#include "shell/win32/tray_menu_popup.h"

#include <commctrl.h>
#include <shellapi.h>
#include <utility>

#include "base/text.h"
#include "platform/win32/loaded_function.h"
#include "platform/win32/menu_handle.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

POINT PlaceOf(TrayMenuPlace place, HWND owner, UINT icon) {
    POINT point{};
    GetCursorPos(&point);
    if (place == TrayMenuPlace::Icon) {
        using GetRect = HRESULT(WINAPI*)(const NOTIFYICONIDENTIFIER*, RECT*);
        const auto getRect =
            FunctionOf<GetRect>(GetModuleHandleW(L"shell32.dll"), "Shell_NotifyIconGetRect");
        NOTIFYICONIDENTIFIER which{};
        which.cbSize = sizeof which;
        which.hWnd = owner;
        which.uID = icon;
        RECT rect{};
        if (getRect && getRect(&which, &rect) == S_OK && rect.right > rect.left) {
            return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
        }
    }
    return point;
}

// The entries of that sub-menu of the menu; null when it is no part of it.
const std::vector<MenuEntry>* FindEntries(HMENU wanted, HMENU menu,
                                          const std::vector<MenuEntry>& entries) {
    if (wanted == menu) {
        return &entries;
    }
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const HMENU popup = GetSubMenu(menu, static_cast<int>(i));
        if (popup && entries[i].IsSubMenu()) {
            if (const auto* found = FindEntries(wanted, popup, entries[i].Children)) {
                return found;
            }
        }
    }
    return nullptr;
}

}  // namespace

TrayMenuPopup::TrayMenuPopup(HWND owner, TrayMenu& menu, CTrayMenuToolTip::Source tips,
                             const Strings& texts, const Clock& clock, Log& log)
    : owner_(owner), menu_(menu), tip_(std::move(tips), texts, clock), log_(log) {
    tip_.Create(owner, texts.LoadString(kStrDefaultMenuTip));
}

int TrayMenuPopup::Show(TrayMenuPlace place, UINT icon) {
    if (open_) {
        return 0;
    }
    const POINT point = PlaceOf(place, owner_, icon);
    const UniqueMenu menu = MakePopupMenu(menu_.Entries(false));
    EndMenu();
    SetForegroundWindow(owner_);
    open_ = menu.get();
    const int command = TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, point.x,
                                       point.y, 0, owner_, nullptr);
    open_ = nullptr;
    tip_.Cancel();
    // Else the next click beside a menu would not close it.
    PostMessageW(owner_, WM_NULL, 0, 0);
    log_.Write(Concat(u"DisplayTrayMenuWithPoint x=", point.x, u" y=", point.y, u" bLoad=",
                      int{menu != nullptr}, u", bPOPUP=", int{menu != nullptr}));
    return command;
}

void TrayMenuPopup::OnInitMenuPopup(HMENU menu) {
    log_.Write(u"CVBRTrayWnd::OnInitMenuPopup");
    if (!open_) {
        return;
    }
    std::vector<MenuEntry> entries = menu_.Entries(false);
    const auto* found = FindEntries(menu, open_, entries);
    if (found && IsHistoryMenu(*found)) {
        log_.Write(u"bHistory=1\n");
        entries = menu_.Entries(true);
        found = FindEntries(menu, open_, entries);
    }
    if (found) {
        UpdatePopupMenu(menu, *found);
    }
}

void TrayMenuPopup::OnMenuSelect(WPARAM wParam, LPARAM lParam) {
    tip_.OnMenuSelect(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HMENU>(lParam));
}

void TrayMenuPopup::OnEnterIdle(WPARAM reason, LPARAM window) {
    tip_.OnEnterIdle(reason, reinterpret_cast<HWND>(window));
}

bool TrayMenuPopup::OnTimer(WPARAM id) {
    if (id != CMenuToolTip::kTipTimer) {
        return false;
    }
    tip_.OnTimer();
    return true;
}

bool TrayMenuPopup::OnNotify(const NMHDR& notice) {
    return notice.code == TTN_SHOW && KeepOnScreens(notice.hwndFrom);
}

}  // namespace vbr
