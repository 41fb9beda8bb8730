// SPDX-License-Identifier: MIT
#include "menu/win32/menu_tracker.h"

#include <commctrl.h>

#include "platform/win32/menu_handle.h"

namespace vbr {
namespace {

constexpr UINT kBeep = 0xFFFFFFFF;

// The highlighted item of the menu.
std::optional<std::size_t> SelectedItem(HMENU menu) {
    const int count = GetMenuItemCount(menu);
    for (int i = 0; i < count; ++i) {
        const UINT state = GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION);
        if (state != static_cast<UINT>(-1) && (state & MF_HILITE) != 0) {
            return static_cast<std::size_t>(i);
        }
    }
    return std::nullopt;
}

}  // namespace

HWND CMenuTracker::Create(bool withTips) {
    WindowCreation creation;
    creation.ClassName = L"Vellumbridge_Menu_Tracker";
    creation.Style = WS_CHILD;
    creation.Parent = HWND_MESSAGE;
    if (WindowBase::Create(creation) && withTips) {
        tip_ =
            std::make_unique<CPhraseMenuToolTip>(menu_, parts_.Painter, parts_.Texts, parts_.Clock);
        if (!tip_->Create(Handle())) {
            tip_.reset();
        }
    }
    return Handle();
}

std::optional<LRESULT> CMenuTracker::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    static constexpr MessageHandler<CMenuTracker> kMap[] = {
        {WM_MEASUREITEM, &CMenuTracker::OnMeasureItem},
        {WM_DRAWITEM, &CMenuTracker::OnDrawItem},
        {WM_MENUSELECT, &CMenuTracker::OnMenuSelect},
        {WM_MENUCHAR, &CMenuTracker::OnMenuChar},
        {WM_MENURBUTTONUP, &CMenuTracker::OnMenuRButtonUp},
        {WM_ENTERIDLE, &CMenuTracker::OnEnterIdle},
        {WM_EXITMENULOOP, &CMenuTracker::OnExitMenuLoop},
        {WM_TIMER, &CMenuTracker::OnTimer},
        {WM_NOTIFY, &CMenuTracker::OnNotify},
        {WM_DESTROY, &CMenuTracker::OnDestroy},
    };
    return DispatchMessageMap(*this, kMap, message, wParam, lParam);
}

LRESULT CMenuTracker::OnMeasureItem(WPARAM, LPARAM item) {
    return parts_.Painter.OnMenuMEASUREITEM(*reinterpret_cast<MEASUREITEMSTRUCT*>(item));
}

LRESULT CMenuTracker::OnDrawItem(WPARAM, LPARAM item) {
    return parts_.Painter.OnMenuDRAWITEMSTRUCT(*reinterpret_cast<const DRAWITEMSTRUCT*>(item));
}

LRESULT CMenuTracker::OnMenuSelect(WPARAM item, LPARAM menu) {
    if (tip_) {
        tip_->OnMenuSelect(LOWORD(item), HIWORD(item), reinterpret_cast<HMENU>(menu));
    }
    return 0;
}

LRESULT CMenuTracker::OnMenuChar(WPARAM typed, LPARAM menu) {
    const auto handle = reinterpret_cast<HMENU>(menu);
    const auto* items = menu_.ItemsOf(handle);
    if (!items || items->empty()) {
        return MAKELRESULT(0, MNC_IGNORE);
    }
    if (handle != typedIn_) {
        typedIn_ = handle;
        typing_.Reset();
    }
    const auto place =
        typing_.OnChar(*items, SelectedItem(handle), static_cast<char16_t>(LOWORD(typed)));
    return place ? MAKELRESULT(*place, MNC_SELECT) : MAKELRESULT(0, MNC_IGNORE);
}

LRESULT CMenuTracker::OnMenuRButtonUp(WPARAM position, LPARAM menu) {
    const auto* items = menu_.ItemsOf(reinterpret_cast<HMENU>(menu));
    const CMenuItemInfo* info = items && position < items->size() ? (*items)[position] : nullptr;
    if (rightMenuOpen_ || !info || !HasRightClickMenu(*info)) {
        MessageBeep(kBeep);
        return 1;
    }
    const std::uint32_t id = info->CommandId;
    rightMenuOpen_ = true;
    const int command = RunRightMenu(*info);
    if (const auto code = RightMenuCodeOf(command)) {
        if (ClosesPhraseMenu(*code)) {
            EndMenu();
        }
        parts_.Log.Write(u"IDataNeededHander_MenuSelf::OnRightMenuCommand");
        parts_.OnRightCommand(*code, id);
    }
    rightMenuOpen_ = false;
    return 1;
}

int CMenuTracker::RunRightMenu(const CMenuItemInfo& info) {
    const UniqueMenu menu = MakePopupMenu(BuildRightClickMenu(info, parts_.Texts));
    POINT point{};
    GetCursorPos(&point);
    return TrackPopupMenu(menu.get(), TPM_RECURSE | TPM_RETURNCMD, point.x, point.y, 0, Handle(),
                          nullptr);
}

LRESULT CMenuTracker::OnEnterIdle(WPARAM reason, LPARAM window) {
    if (tip_) {
        tip_->OnEnterIdle(reason, reinterpret_cast<HWND>(window));
    }
    return 0;
}

LRESULT CMenuTracker::OnExitMenuLoop(WPARAM, LPARAM) {
    if (tip_) {
        tip_->HideTip();
    }
    if (!rightMenuOpen_) {
        tip_.reset();
    }
    return 0;
}

LRESULT CMenuTracker::OnTimer(WPARAM id, LPARAM) {
    if (tip_ && id == CMenuToolTip::kTipTimer) {
        tip_->OnTimer();
    }
    return 0;
}

LRESULT CMenuTracker::OnNotify(WPARAM, LPARAM header) {
    const auto* notice = reinterpret_cast<const NMHDR*>(header);
    return tip_ && notice->code == TTN_SHOW && KeepOnScreens(notice->hwndFrom);
}

LRESULT CMenuTracker::OnDestroy(WPARAM, LPARAM) {
    tip_.reset();
    return 0;
}

}  // namespace vbr
