// SPDX-License-Identifier: MIT
#include "menu/win32/menu_tool_tip.h"

#include <algorithm>
#include <commctrl.h>

#include "platform/object_names.h"
#include "platform/win32/common_controls.h"
#include "platform/win32/wide.h"
#include "platform/win32/win_geometry.h"

namespace vbr {
namespace {

constexpr wchar_t kTipClass[] = L"MenuToolTip";
constexpr char16_t kNoText[] = u"No Text associated";
constexpr UINT kToolFlags = TTF_IDISHWND | TTF_TRACK | TTF_ABSOLUTE | TTF_TRANSPARENT;
constexpr LPARAM kFirstWidth = 300;
constexpr std::size_t kMenuStringMax = 1024;
constexpr std::uint32_t kTimerTooEarlyMs = 10;

WNDPROC& PlainTipProc() {
    static WNDPROC proc = nullptr;
    return proc;
}

// A tip in the way of the mouse goes away.
LRESULT CALLBACK TipProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_MOUSEMOVE || message == WM_LBUTTONDOWN) {
        SendMessageW(window, TTM_POP, 0, 0);
        ShowWindow(window, SW_HIDE);
    }
    const LRESULT result = CallWindowProcW(PlainTipProc(), window, message, wParam, lParam);
    if (message == WM_NCHITTEST && result == HTCLIENT) {
        PostMessageW(window, TTM_POP, 0, 0);
    }
    return result;
}

// The name of the tip's window class, registered on first use.
const wchar_t* TipClass() {
    static const bool registered = [] {
        WNDCLASSEXW info{};
        info.cbSize = sizeof info;
        if (!GetClassInfoExW(nullptr, TOOLTIPS_CLASSW, &info)) {
            return false;
        }
        PlainTipProc() = info.lpfnWndProc;
        info.lpfnWndProc = TipProc;
        info.hInstance = GetModuleHandleW(nullptr);
        info.lpszClassName = kTipClass;
        info.style &= ~UINT{CS_GLOBALCLASS};
        return RegisterClassExW(&info) != 0;
    }();
    return registered ? kTipClass : TOOLTIPS_CLASSW;
}

TTTOOLINFOW ToolOf(HWND owner) {
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = kToolFlags;
    tool.hwnd = owner;
    tool.uId = reinterpret_cast<UINT_PTR>(owner);
    return tool;
}

int PositionOf(HMENU menu, std::uint32_t id) {
    const int count = GetMenuItemCount(menu);
    for (int i = 0; i < count; ++i) {
        if (GetMenuItemID(menu, i) == id) {
            return i;
        }
    }
    return -1;
}

}  // namespace

void CMenuToolTip::CreateTip(HWND owner, std::u16string_view defaultText, DWORD style,
                             std::u16string_view title) {
    owner_ = owner;
    defaultText_ = defaultText.empty() ? std::u16string_view(kNoText) : defaultText;
    style_ = style;
    firstTitle_ = title;
}

bool CMenuToolTip::EnsureWindow() {
    if (tip_) {
        return true;
    }
    UseCommonControls(ICC_BAR_CLASSES);
    tip_.reset(CreateWindowExW(WS_EX_TOPMOST, IsSubclassed() ? TipClass() : TOOLTIPS_CLASSW,
                               nullptr, style_ | WS_POPUP, CW_USEDEFAULT, CW_USEDEFAULT,
                               CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr,
                               GetModuleHandleW(nullptr), nullptr));
    if (!tip_) {
        return false;
    }
    TTTOOLINFOW tool = ToolOf(owner_);
    tool.lpszText = Wide(defaultText_.data());
    SendMessageW(tip_.get(), TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    SendMessageW(tip_.get(), TTM_SETMAXTIPWIDTH, 0, kFirstWidth);
    if (!firstTitle_.empty()) {
        SetTipTitle(firstTitle_, 0, nullptr);
    }
    DressTip();
    return true;
}

void CMenuToolTip::SetTipTitle(std::u16string_view title, std::uint32_t id, HICON icon) {
    if (!tip_) {
        firstTitle_ = title;
        return;
    }
    const std::u16string shown = ShortTipTitle(title);
    SendMessageW(tip_.get(), TTM_SETTITLEW,
                 reinterpret_cast<WPARAM>(icon ? icon : GetCommandIcon(id)),
                 reinterpret_cast<LPARAM>(Wide(shown)));
}

bool CMenuToolTip::ActivateTip(bool on) {
    if (!tip_ || (on && IsSuppressed())) {
        return false;
    }
    TTTOOLINFOW tool = ToolOf(owner_);
    SendMessageW(tip_.get(), TTM_TRACKACTIVATE, on, reinterpret_cast<LPARAM>(&tool));
    return true;
}

void CMenuToolTip::OnMenuSelect(std::uint32_t id, std::uint32_t flags, HMENU menu) {
    const MenuSelection selection{id, flags, menu != nullptr};
    if (id != 0 && IsSuppressed()) {
        return;
    }
    if (!selection.IsCommand()) {
        Cancel();
        return;
    }
    wchar_t text[kMenuStringMax + 1];
    if (GetMenuStringW(menu, id, text, static_cast<int>(kMenuStringMax + 1), MF_BYCOMMAND) > 0) {
        SetTipTitle(TitleOfMenuString(FromWide(text)), id, nullptr);
    }
    if (IsSystemCommand(id)) {
        return;
    }
    HideTip();
    menu_ = menu;
    delay_.Rest(id);
    if (IsImmediate(id)) {
        OnTimer();
    } else {
        WaitFor(kTipDelayMs);
    }
}

void CMenuToolTip::WaitFor(std::uint32_t milliseconds) {
    SetTimer(owner_, kTipTimer, milliseconds, nullptr);
}

void CMenuToolTip::OnTimer() {
    KillTimer(owner_, kTipTimer);
    if (const auto id = delay_.TakeDue()) {
        if (IsMenu(menu_) && EnsureWindow()) {
            ShowTip(*id);
        } else {
            HideTip();
        }
    } else if (delay_.IsPending()) {
        // The system's timers and its clock do not tick together.
        WaitFor(kTimerTooEarlyMs);
    }
}

void CMenuToolTip::OnEnterIdle(WPARAM reason, HWND menuWindow) {
    if (reason == MSGF_MENU && menuWindow) {
        menuWindow_ = menuWindow;
        if (shown_ != 0) {
            Place(shown_);
        }
    }
}

void CMenuToolTip::HideTip() {
    shown_ = 0;
    ActivateTip(false);
}

void CMenuToolTip::Cancel() {
    delay_.Cancel();
    HideTip();
}

MenuTipBlock CMenuToolTip::TipOf(std::uint32_t id) {
    static const UINT ask = RegisterWindowMessageW(Wide(kMessageMenuTip.data()));
    MenuTipBlock tip{.Id = id};
    if (!source_ || SendMessageW(source_, ask, 0, reinterpret_cast<LPARAM>(&tip)) == 0) {
        GetTipText(tip.Text, id, menu_, tip.Title);
    }
    return tip;
}

void CMenuToolTip::ShowTip(std::uint32_t id) {
    const MenuTipBlock tip = TipOf(id);
    std::u16string shown = tip.Text.empty() ? defaultText_ : TipTextToShow(tip.Text);
    TTTOOLINFOW tool = ToolOf(owner_);
    tool.lpszText = Wide(shown.data());
    SendMessageW(tip_.get(), TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
    if (!tip.Title.empty()) {
        SetTipTitle(tip.Title, id, tip.Icon);
    }
    Place(id);
    if (ActivateTip(true)) {
        shown_ = id;
        // Its size is sure only now.
        Place(id);
    }
}

SIZE CMenuToolTip::TipSize() const {
    RECT rect{};
    GetWindowRect(tip_.get(), &rect);
    if (IsWindowVisible(tip_.get())) {
        return {rect.right - rect.left, rect.bottom - rect.top};
    }
    TTTOOLINFOW tool = ToolOf(owner_);
    const LRESULT size =
        SendMessageW(tip_.get(), TTM_GETBUBBLESIZE, 0, reinterpret_cast<LPARAM>(&tool));
    return {LOWORD(size), HIWORD(size)};
}

void CMenuToolTip::Place(std::uint32_t id) {
    RECT item{};
    const int position = PositionOf(menu_, id);
    if (position < 0 || !GetMenuItemRect(nullptr, menu_, static_cast<UINT>(position), &item)) {
        return;
    }
    const POINT place = AdjustPosition(item, TipSize());
    SendMessageW(tip_.get(), TTM_TRACKPOSITION, 0, MAKELPARAM(place.x, place.y));
    SetWindowPos(tip_.get(), HWND_TOPMOST, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
}

bool CMenuToolTip::IsBalloon() const {
    return (GetWindowLongPtrW(tip_.get(), GWL_STYLE) & TTS_BALLOON) != 0;
}

POINT CMenuToolTipTracked::AdjustPosition(const RECT& item, SIZE tip) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromRect(&item, MONITOR_DEFAULTTONEAREST), &monitor);
    return ToWin(PlaceTip({.Item = FromWin(item),
                           .Tip = FromWin(tip),
                           .Screen = FromWin(monitor.rcMonitor),
                           .WidthGuess = TipWidthGuess(),
                           .HeightGuess = TipHeightGuess(),
                           .BorderHeight = GetSystemMetrics(SM_CYBORDER),
                           .IsBalloon = IsBalloon()}));
}

bool KeepOnScreens(HWND tip) {
    RECT rect{};
    GetWindowRect(tip, &rect);
    const int left = GetSystemMetrics(SM_XVIRTUALSCREEN);
    const int top = GetSystemMetrics(SM_YVIRTUALSCREEN);
    const auto kept =
        KeepTipOnScreens(FromWin(rect), {left, top, left + GetSystemMetrics(SM_CXVIRTUALSCREEN),
                                         top + GetSystemMetrics(SM_CYVIRTUALSCREEN)});
    return kept && SetWindowPos(tip, nullptr, kept->Left, kept->Top, kept->Width(), kept->Height(),
                                SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace vbr
