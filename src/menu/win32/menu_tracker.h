// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <functional>
#include <memory>

#include "menu/menu_typing.h"
#include "menu/right_click_menu.h"
#include "menu/win32/menu_painter.h"
#include "menu/win32/phrase_menu_tool_tip.h"
#include "menu/win32/shown_menu.h"
#include "platform/clock.h"
#include "platform/fault_catcher.h"
#include "platform/log.h"
#include "platform/strings.h"
#include "platform/win32/handle.h"
#include "platform/win32/window_base.h"

namespace vbr {

// The message-only window that owns the phrase menu while it is open: it has its items painted,
// explained and found by typing, and opens the right-click menu.
class CMenuTracker : public WindowBase {
  public:
    struct Collaborators {
        MenuPainter& Painter;
        const Strings& Texts;
        const vbr::Clock& Clock;
        FaultCatcher& Faults;
        vbr::Log& Log;
        // Carries out a command of the right-click menu on an item; true when the phrase menu is to
        // close.
        std::function<bool(RightMenuCode code, const MenuSubject& item)> OnRightCommand;
        HWND TipSource;         // may know more of an item than its tip
        std::u16string Editor;  // path of the phrase editor's program
    };

    CMenuTracker(const Collaborators& with, const ShownMenu& menu)
        : with_(with), menu_(menu), typing_(with.Clock) {}
    ~CMenuTracker() override;

    // The window's handle, null when it can't be made.
    HWND Create(bool withTips);

    // Whether the end of the right-click menu, and no input since, has ended the phrase menu.
    bool EndedByRightMenu() const { return rightMenuEnded_; }

  protected:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    LRESULT OnMeasureItem(WPARAM, LPARAM item);
    LRESULT OnDrawItem(WPARAM, LPARAM item);
    LRESULT OnMenuSelect(WPARAM item, LPARAM menu);
    LRESULT OnMenuChar(WPARAM typed, LPARAM menu);
    LRESULT OnMenuRButtonUp(WPARAM position, LPARAM menu);
    LRESULT OnMoveTo(WPARAM position, LPARAM menu);
    LRESULT OnRightClickSeen(WPARAM position, LPARAM menu);
    LRESULT OnEnterIdle(WPARAM reason, LPARAM window);
    LRESULT OnExitMenuLoop(WPARAM, LPARAM);
    LRESULT OnTimer(WPARAM id, LPARAM);
    LRESULT OnNotify(WPARAM, LPARAM header);
    LRESULT OnDestroy(WPARAM, LPARAM);
    void OpenRightMenu(std::size_t position, HMENU menu, POINT at);
    int RunRightMenu(const CMenuItemInfo& info, POINT at);
    bool OnMenuInput(const MSG& message);
    static LRESULT CALLBACK MenuInputHook(int code, WPARAM wParam, LPARAM lParam);

    Collaborators with_;
    const ShownMenu& menu_;
    MenuTyping typing_;
    HMENU typedIn_ = nullptr;
    HMENU selectedIn_ = nullptr;
    UniqueHook inputHook_;
    bool rightClickTold_ = false;  // by the system itself
    bool rightMenuOpen_ = false;
    bool rightMenuEnded_ = false;  // and no input came since
    std::unique_ptr<CPhraseMenuToolTip> tip_;
};

}  // namespace vbr
