// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/geometry.h"
#include "platform/clock.h"

namespace vbr {

inline constexpr std::uint32_t kTipDelayMs = 500;

// Bits of the flags that come with the selection of an item.
inline constexpr std::uint32_t kSelectPopup = 16;
inline constexpr std::uint32_t kSelectSeparator = 2048;
inline constexpr std::uint32_t kSelectMenuClosed = 0xFFFF;

// A selection in a menu, as the system tells it.
struct MenuSelection {
    std::uint32_t Id = 0;
    std::uint32_t Flags = 0;
    bool HasMenu = true;

    bool IsClosing() const { return Flags == kSelectMenuClosed && !HasMenu; }
    // Whether the item can have a tip at all.
    bool IsCommand() const {
        return Id != 0 && !IsClosing() && (Flags & (kSelectPopup | kSelectSeparator)) == 0;
    }
};

// Commands of a window's system menu.
bool IsSystemMenuCommand(std::uint32_t id);

// Waits until the user has rested on one item for long enough.
class TipDelay {
  public:
    explicit TipDelay(const Clock& clock) : clock_(clock) {}

    // The user has come to the item; any other is left.
    void Rest(std::uint32_t id);
    void Cancel() { pending_.reset(); }
    bool IsPending() const { return pending_.has_value(); }

    // The item whose tip is to be shown now, each time once.
    std::optional<std::uint32_t> TakeDue();

  private:
    const Clock& clock_;
    std::optional<std::uint32_t> pending_;
    std::uint32_t since_ = 0;
};

// What a tip's place depends on. All rectangles are on the screen.
struct TipPlacing {
    Rect Item;
    Size Tip;
    Rect Screen;         // of the monitor that shows the item
    int WidthGuess = 0;  // stands for a width that isn't known yet
    int HeightGuess = 0;
    int BorderHeight = 0;
    bool IsBalloon = false;
};

// Where the tip's top left corner goes: beside the item, at its left where the right has no room.
Point PlaceTip(const TipPlacing& placing);

// The shown tip moved or cut so that it ends within all screens together; nothing when it does.
std::optional<Rect> KeepTipOnScreens(const Rect& tip, const Rect& screens);

// The title as the tip can show it.
std::u16string ShortTipTitle(std::u16string_view title);

// The text as a tip can show it: cut where no screen is high enough, and blanks for tabs, which not
// every tip spreads.
std::u16string TipTextToShow(std::u16string_view text);

// The text of a menu item without access key, a shortcut in brackets behind it.
std::u16string TitleOfMenuString(std::u16string_view text);

}  // namespace vbr
