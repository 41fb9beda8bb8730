// SPDX-License-Identifier: MIT
#include "menu/win32/popup_menu.h"

#include "menu/win32/menu_tracker.h"
#include "menu/win32/shown_menu.h"
#include "platform/win32/auto_foreground_window.h"
#include "platform/win32/screen_dpi.h"
#include "platform/win32/win_geometry.h"

namespace vbr {
namespace {

POINT PlaceOfMenu(std::optional<Point> at) {
    POINT point{};
    if (at) {
        point = ToWin(*at);
    } else {
        GetCursorPos(&point);
    }
    return point;
}

}  // namespace

std::uint32_t PopupMenuPresenter::Show(PhraseMenu items, std::optional<Point> at) {
    ShownMenu menu(std::move(items));
    const CAutoForegroundWindow front(parts_.Foreground);
    const std::uint32_t choice = Track(menu, PlaceOfMenu(at));
    menu_ = nullptr;
    parts_.Guard.Run(kFaultCleanupMenu, [&menu] { menu.Cleanup(); });
    return choice;
}

std::uint32_t PopupMenuPresenter::Track(ShownMenu& menu, POINT point) {
    painter_.Begin(menu, DpiAt(point));
    menu_ = menu.Root();
    // The pointer stands at the menu's corner, ready to choose.
    SetCursorPos(point.x, point.y);
    int choice = 0;
    // Where the end of a menu within it ends the phrase menu too, that opens again.
    for (bool again = true; again;) {
        CMenuTracker tracker({painter_, parts_.Texts, parts_.Clock, parts_.Log,
                              parts_.OnRightCommand, parts_.Foreground, parts_.Editor},
                             menu);
        const HWND owner = tracker.Create(parts_.Settings.MenuToolTips);
        choice = TrackPopupMenuEx(menu.Root(), TPM_RETURNCMD, point.x, point.y, owner, nullptr);
        again =
            choice == 0 && tracker.EndedByRightMenu() && GetForegroundWindow() == parts_.Foreground;
    }
    parts_.OnClosed();
    painter_.End();
    return static_cast<std::uint32_t>(choice);
}

}  // namespace vbr
