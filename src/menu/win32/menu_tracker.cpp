// SPDX-License-Identifier: MIT
#include "menu/win32/menu_tracker.h"

#include <commctrl.h>
#include <cstdlib>

#include "platform/win32/menu_handle.h"
#include "platform/win32/received.h"

namespace vbr {
namespace {

constexpr UINT kBeep = 0xFFFFFFFF;
constexpr UINT kMsgRightClickSeen = WM_APP + 1;
constexpr UINT kMsgMoveTo = WM_APP + 2;

// The tracker whose menu is open on this thread.
CMenuTracker*& OpenTracker() {
    static CMenuTracker* tracker = nullptr;
    return tracker;
}

bool IsKeyOfRightMenu(const MSG& message) {
    return (message.message == WM_KEYDOWN && message.wParam == VK_APPS) ||
           (message.message == WM_SYSKEYDOWN && message.wParam == VK_F10 &&
            GetKeyState(VK_SHIFT) < 0);
}

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

CMenuTracker::~CMenuTracker() {
    if (OpenTracker() == this) {
        OpenTracker() = nullptr;
    }
    Destroy();
}

HWND CMenuTracker::Create(bool withTips) {
    WindowCreation creation;
    creation.ClassName = L"Vellumbridge_Menu_Tracker";
    creation.Style = WS_CHILD;
    creation.Parent = HWND_MESSAGE;
    if (WindowBase::Create(creation) && withTips) {
        tip_ = std::make_unique<CPhraseMenuToolTip>(menu_, with_.Painter, with_.Texts, with_.Clock,
                                                    with_.Editor);
        tip_->SetSource(with_.TipSource);
        tip_->Create(Handle());
    }
    OpenTracker() = this;
    inputHook_.reset(SetWindowsHookExW(WH_MSGFILTER, MenuInputHook, nullptr, GetCurrentThreadId()));
    return Handle();
}

std::optional<LRESULT> CMenuTracker::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    static constexpr MessageHandler<CMenuTracker> kMap[] = {
        {WM_MEASUREITEM, &CMenuTracker::OnMeasureItem},
        {WM_DRAWITEM, &CMenuTracker::OnDrawItem},
        {WM_MENUSELECT, &CMenuTracker::OnMenuSelect},
        {WM_MENUCHAR, &CMenuTracker::OnMenuChar},
        {WM_MENURBUTTONUP, &CMenuTracker::OnMenuRButtonUp},
        {kMsgMoveTo, &CMenuTracker::OnMoveTo},
        {kMsgRightClickSeen, &CMenuTracker::OnRightClickSeen},
        {WM_ENTERIDLE, &CMenuTracker::OnEnterIdle},
        {WM_EXITMENULOOP, &CMenuTracker::OnExitMenuLoop},
        {WM_TIMER, &CMenuTracker::OnTimer},
        {WM_NOTIFY, &CMenuTracker::OnNotify},
        {WM_DESTROY, &CMenuTracker::OnDestroy},
    };
    return DispatchMessageMap(*this, kMap, message, wParam, lParam);
}

LRESULT CMenuTracker::OnMeasureItem(WPARAM, LPARAM item) {
    auto measured = Received<MEASUREITEMSTRUCT>(with_.Faults, item);
    if (!measured) {
        return 0;
    }
    const LRESULT done = with_.Painter.OnMenuMEASUREITEM(*measured);
    // It may be memory that is there to be read alone.
    return RunSilently(with_.Faults, LRESULT{0}, [&] {
        *reinterpret_cast<MEASUREITEMSTRUCT*>(item) = *measured;
        return done;
    });
}

LRESULT CMenuTracker::OnDrawItem(WPARAM, LPARAM item) {
    const auto drawn = Received<DRAWITEMSTRUCT>(with_.Faults, item);
    return drawn ? with_.Painter.OnMenuDRAWITEMSTRUCT(*drawn) : 0;
}

LRESULT CMenuTracker::OnMenuSelect(WPARAM item, LPARAM menu) {
    selectedIn_ = reinterpret_cast<HMENU>(menu);
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
    if (!place) {
        return MAKELRESULT(0, MNC_IGNORE);
    }
    PostMessageW(Handle(), kMsgMoveTo, *place, menu);
    return MAKELRESULT(*place, MNC_SELECT);
}

// Not every system moves to the item that it was told; the keys do it there.
LRESULT CMenuTracker::OnMoveTo(WPARAM position, LPARAM menu) {
    const auto handle = reinterpret_cast<HMENU>(menu);
    if (const auto* items = menu_.ItemsOf(handle); items && position < items->size()) {
        const int steps = KeyStepsTo(*items, SelectedItem(handle), position);
        for (int i = 0; i < std::abs(steps); ++i) {
            PostMessageW(Handle(), WM_KEYDOWN, steps > 0 ? VK_DOWN : VK_UP, 0);
        }
    }
    return 0;
}

// Input for the open menu, before the menu sees it; true takes it away from the menu.
bool CMenuTracker::OnMenuInput(const MSG& message) {
    rightMenuEnded_ = false;
    const bool isKey = IsKeyOfRightMenu(message);
    const auto selected =
        isKey || message.message == WM_RBUTTONUP ? SelectedItem(selectedIn_) : std::nullopt;
    RECT rect{};
    if (!selected || !menu_.ItemsOf(selectedIn_) ||
        !GetMenuItemRect(nullptr, selectedIn_, static_cast<UINT>(*selected), &rect)) {
        return false;
    }
    if (isKey || PtInRect(&rect, message.pt)) {
        rightClickTold_ = false;
        PostMessageW(Handle(), kMsgRightClickSeen, *selected,
                     reinterpret_cast<LPARAM>(selectedIn_));
    }
    return isKey;
}

LRESULT CALLBACK CMenuTracker::MenuInputHook(int code, WPARAM wParam, LPARAM lParam) {
    if (code == MSGF_MENU && OpenTracker() &&
        OpenTracker()->OnMenuInput(*reinterpret_cast<const MSG*>(lParam))) {
        return 1;
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

LRESULT CMenuTracker::OnMenuRButtonUp(WPARAM position, LPARAM menu) {
    rightClickTold_ = true;
    POINT point{};
    GetCursorPos(&point);
    OpenRightMenu(position, reinterpret_cast<HMENU>(menu), point);
    return 1;
}

// Not every system tells of a right click by itself, and none of the key for it.
LRESULT CMenuTracker::OnRightClickSeen(WPARAM position, LPARAM menu) {
    const auto handle = reinterpret_cast<HMENU>(menu);
    RECT item{};
    POINT point{};
    GetCursorPos(&point);
    GetMenuItemRect(nullptr, handle, static_cast<UINT>(position), &item);
    if (!PtInRect(&item, point)) {
        point = {item.left + (item.bottom - item.top), item.bottom};
    }
    if (!rightClickTold_) {
        OpenRightMenu(position, handle, point);
    }
    return 0;
}

void CMenuTracker::OpenRightMenu(std::size_t position, HMENU menu, POINT at) {
    const auto* items = menu_.ItemsOf(menu);
    const CMenuItemInfo* info = items && position < items->size() ? (*items)[position] : nullptr;
    if (rightMenuOpen_ || !info || !HasRightClickMenu(*info)) {
        MessageBeep(kBeep);
        return;
    }
    const MenuSubject item = info->Subject;
    rightMenuOpen_ = true;
    if (tip_) {
        tip_->Cancel();
    }
    const auto code = RightMenuCodeOf(RunRightMenu(*info, at));
    bool closes = code && ClosesPhraseMenu(*code);
    if (closes) {
        EndMenu();
    }
    if (code) {
        with_.Log.Write(u"IDataNeededHander_MenuSelf::OnRightMenuCommand");
        if (with_.OnRightCommand(*code, item) && !closes) {
            closes = true;
            EndMenu();
        }
    }
    rightMenuOpen_ = false;
    rightMenuEnded_ = !closes;
}

int CMenuTracker::RunRightMenu(const CMenuItemInfo& info, POINT at) {
    const UniqueMenu menu = MakePopupMenu(BuildRightClickMenu(info, with_.Texts));
    return TrackPopupMenu(menu.get(), TPM_RECURSE | TPM_RETURNCMD, at.x, at.y, 0, Handle(),
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
    const auto notice = Received<NMHDR>(with_.Faults, header);
    return notice && tip_ && notice->code == TTN_SHOW && KeepOnScreens(notice->hwndFrom);
}

LRESULT CMenuTracker::OnDestroy(WPARAM, LPARAM) {
    tip_.reset();
    return 0;
}

}  // namespace vbr
