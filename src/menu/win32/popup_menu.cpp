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

MenuSubject PopupMenuPresenter::Show(PhraseMenu items, std::optional<Point> at) {
    ShownMenu menu(std::move(items));
    const CAutoForegroundWindow front(with_.Foreground);
    const MenuSubject choice = Track(menu, PlaceOfMenu(at));
    menu_ = nullptr;
    with_.Guard.Run(kFaultCleanupMenu, [&menu] { menu.Cleanup(); });
    return choice;
}

MenuSubject PopupMenuPresenter::Track(ShownMenu& menu, POINT point) {
    painter_.Begin(menu, DpiAt(point));
    menu_ = menu.Root();
    // The pointer stands at the menu's corner, ready to choose.
    SetCursorPos(point.x, point.y);
    int choice = 0;
    // Where the end of a menu within it ends the phrase menu too, that opens again.
    for (bool again = true; again;) {
        CMenuTracker tracker({.Painter = painter_,
                              .Texts = with_.Texts,
                              .Clock = with_.Clock,
                              .Faults = with_.Guard.Catcher(),
                              .Log = with_.Log,
                              .OnRightCommand = with_.OnRightCommand,
                              .TipSource = with_.Foreground,
                              .Editor = with_.Editor},
                             menu);
        const HWND owner = tracker.Create(with_.Settings.MenuToolTips);
        choice = TrackPopupMenuEx(menu.Root(), TPM_RETURNCMD, point.x, point.y, owner, nullptr);
        again = choice == 0 && !with_.IsEnding() && tracker.EndedByRightMenu() &&
                GetForegroundWindow() == with_.Foreground;
    }
    painter_.End();
    return menu.SubjectOf(static_cast<std::uint32_t>(choice));
}

}  // namespace vbr
