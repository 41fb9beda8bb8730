// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include "menu/win32/menu_icons.h"
#include "menu/win32/menu_tool_tip.h"
#include "platform/strings.h"

namespace vbr {

// The tips of a menu whose texts stand in the string table under the commands' numbers.
class CStringMenuToolTip : public CMenuToolTipTracked {
  public:
    CStringMenuToolTip(const Strings& strings, const Clock& clock)
        : CMenuToolTipTracked(clock), strings_(strings) {}

    HICON GetCommandIcon(std::uint32_t id) override;
    // The string's first line.
    void GetTipText(std::u16string& text, std::uint32_t id, HMENU menu,
                    std::u16string& title) override;

  protected:
    MenuIcons& Icons() { return icons_; }

  private:
    const Strings& strings_;
    MenuIcons icons_;
};

// The tips of the tray menu and of the history pane's menus, which may know more than the string.
class CTrayMenuToolTip : public CStringMenuToolTip {
  public:
    struct Source {
        // Gives the text, and a title if the command's is not good enough; false leaves both to the
        // string table.
        std::function<bool(std::uint32_t id, std::u16string& text, std::u16string& title)> Tip;
        std::function<bool()> IsOn;  // whether the user wants tips
        std::u16string Editor;       // path of the phrase editor's program
    };

    CTrayMenuToolTip(Source source, const Strings& strings, const Clock& clock)
        : CStringMenuToolTip(strings, clock), source_(std::move(source)) {}

    bool IsSystemCommand(std::uint32_t id) const override;
    HICON GetCommandIcon(std::uint32_t id) override;
    void GetTipText(std::u16string& text, std::uint32_t id, HMENU menu,
                    std::u16string& title) override;
    int TipWidthGuess() const override { return 400; }

    // `owner` owns the menus.
    void Create(HWND owner, std::u16string_view defaultText);

  private:
    void DressTip() override;

    Source source_;
};

}  // namespace vbr
