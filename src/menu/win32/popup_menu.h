// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include "menu/phrase_menu_handler.h"

namespace vbr {

// Shows the phrase menu as a popup menu of this process, in front of the target.
class PopupMenuPresenter : public MenuPresenter {
  public:
    // `foreground` is the window that takes the keyboard while the menu is open.
    explicit PopupMenuPresenter(HWND foreground) : foreground_(foreground) {}

    std::uint32_t Show(const PhraseMenu& menu, std::optional<ScreenPoint> at) override;
    void ClearFonts() override {}
    bool IsShown() const override { return menu_ && IsMenu(menu_); }

  private:
    HWND foreground_;
    HMENU menu_ = nullptr;
};

}  // namespace vbr
