// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <cstdint>
#include <string>

#include "menu/menu_tip_rules.h"
#include "platform/clock.h"
#include "platform/win32/handle.h"
#include "platform/win32/window_base.h"

namespace vbr {

// What a window answers to the registered message kMessageMenuTip, whose lParam is the block's
// address, when it has a tip for the item; its result is not 0 then.
struct MenuTipBlock {
    std::uint32_t Id = 0;
    std::u16string Title;  // empty: as it is
    std::u16string Text;
    HICON Icon = nullptr;  // its owner's; null: the command's own
};

// The tip that opens beside an item of a menu when the user rests on it. The window that owns the
// menu passes its messages on; belongs to that window's thread.
class CMenuToolTip {
  public:
    explicit CMenuToolTip(const Clock& clock) : delay_(clock) {}

    // True for commands that have no tip.
    virtual bool IsSystemCommand(std::uint32_t id) const { return IsSystemMenuCommand(id); }
    // The icon beside the tip's title; the caller does not own it.
    virtual HICON GetCommandIcon(std::uint32_t id) = 0;
    virtual ~CMenuToolTip() = default;
    CMenuToolTip(const CMenuToolTip&) = delete;
    CMenuToolTip& operator=(const CMenuToolTip&) = delete;
    // Without an icon the command's own stands.
    virtual void SetTipTitle(std::u16string_view title, std::uint32_t id, HICON icon);
    // Shows or hides the tip's window; false when it is suppressed.
    virtual bool ActivateTip(bool on);
    virtual bool IsSuppressed() const { return false; }
    // Whether the mouse hides the tip.
    virtual bool IsSubclassed() const { return true; }
    // Where the tip's top left corner goes. `item` is on the screen.
    virtual POINT AdjustPosition(const RECT& item, SIZE tip) = 0;
    virtual bool IsImmediate(std::uint32_t) const { return false; }
    virtual void GetTipText(std::u16string& text, std::uint32_t id, HMENU menu,
                            std::u16string& title) = 0;

    // How the tip's window is made when the first tip is to show: making it takes longer than
    // opening a menu. `owner` gets WM_TIMER with kTipTimer and the tip's notices.
    void CreateTip(HWND owner, std::u16string_view defaultText, DWORD style,
                   std::u16string_view title);

    // A window of this process that is asked for each tip first.
    void SetSource(HWND source) { source_ = source; }

    void OnMenuSelect(std::uint32_t id, std::uint32_t flags, HMENU menu);
    void OnEnterIdle(WPARAM reason, HWND menuWindow);
    void OnTimer();
    void HideTip();
    // Hides the tip, and none comes before the next selection.
    void Cancel();

    static constexpr UINT_PTR kTipTimer = 1;

  protected:
    bool IsBalloon() const;
    HWND Window() const { return tip_.get(); }

  private:
    // Gives the window that was just made its looks.
    virtual void DressTip() {}
    bool EnsureWindow();
    void ShowTip(std::uint32_t id);
    MenuTipBlock TipOf(std::uint32_t id);
    void Place(std::uint32_t id);
    SIZE TipSize() const;
    void WaitFor(std::uint32_t milliseconds);

    TipDelay delay_;
    HWND owner_ = nullptr;
    HWND source_ = nullptr;
    HMENU menu_ = nullptr;
    std::uint32_t shown_ = 0;  // the item whose tip shows, 0 for none
    HWND menuWindow_ = nullptr;
    UniqueWindow tip_;
    std::u16string defaultText_;
    DWORD style_ = 0;
    std::u16string firstTitle_;
};

// A tip that stands beside its item, on the monitor that shows the item.
class CMenuToolTipTracked : public CMenuToolTip {
  public:
    using CMenuToolTip::CMenuToolTip;

    POINT AdjustPosition(const RECT& item, SIZE tip) override;
    virtual int TipHeightGuess() const { return 150; }
    virtual int TipWidthGuess() const { return 200; }
};

// Keeps a tip that is about to show on the screens; true when it had to be moved.
bool KeepOnScreens(HWND tip);

}  // namespace vbr
