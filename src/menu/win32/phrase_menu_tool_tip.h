// SPDX-License-Identifier: MIT
#pragma once

#include "menu/win32/menu_painter.h"
#include "menu/win32/menu_tool_tip.h"
#include "menu/win32/shown_menu.h"
#include "platform/strings.h"

namespace vbr {

// The tips of the phrase menu and of its right-click menu.
class CPhraseMenuToolTip : public CMenuToolTipTracked {
  public:
    // `editor` is the path of the phrase editor's program.
    CPhraseMenuToolTip(const ShownMenu& menu, MenuPainter& painter, const Strings& strings,
                       const Clock& clock, std::u16string_view editor)
        : CMenuToolTipTracked(clock),
          menu_(menu),
          painter_(painter),
          strings_(strings),
          editor_(editor) {}

    HICON GetCommandIcon(std::uint32_t id) override;
    void GetTipText(std::u16string& text, std::uint32_t id, HMENU menu,
                    std::u16string& title) override;

    void Create(HWND owner);

  private:
    void DressTip() override;

    const ShownMenu& menu_;
    MenuPainter& painter_;
    const Strings& strings_;
    std::u16string editor_;
};

}  // namespace vbr
