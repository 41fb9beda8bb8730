// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <functional>

#include "menu/phrase_menu_handler.h"
#include "menu/right_click_menu.h"
#include "menu/win32/menu_painter.h"

namespace vbr {

// Shows the phrase menu as a popup menu of this process, in front of the target.
class PopupMenuPresenter : public MenuPresenter {
  public:
    struct Collaborators {
        // The program's window: takes the keyboard while the menu is open, and is asked for tips.
        HWND Foreground;
        const CVBRSettings& Settings;
        const Strings& Texts;
        const vbr::Clock& Clock;
        GuardedSections& Guard;
        vbr::Log& Log;
        std::function<bool(RightMenuCode code, const MenuSubject& item)> OnRightCommand;
        std::function<bool()> IsEnding;  // the program: no menu opens again
        std::u16string Editor;           // path of the phrase editor's program
    };

    explicit PopupMenuPresenter(const Collaborators& with)
        : with_(with), painter_(with.Settings.FontForMenu, with.Guard) {}

    MenuSubject Show(PhraseMenu menu, std::optional<Point> at) override;
    bool IsShown() const override { return menu_ && IsMenu(menu_); }
    void ClearFonts() override { painter_.ClearFonts(); }

  private:
    MenuSubject Track(ShownMenu& menu, POINT point);

    Collaborators with_;
    MenuPainter painter_;
    HMENU menu_ = nullptr;
};

}  // namespace vbr
