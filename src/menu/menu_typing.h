// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "menu/menu_item_info.h"
#include "platform/clock.h"

namespace vbr {

// Moves through an open menu by what the user types: the first letters of a label, or the number
// of an item.
class MenuTyping {
  public:
    explicit MenuTyping(const Clock& clock) : clock_(clock) {}

    // The place of the item to move to from the selected one; nothing when no item answers. Letters
    // typed within a second of each other belong together.
    std::optional<std::size_t> OnChar(const std::vector<const CMenuItemInfo*>& items,
                                      std::optional<std::size_t> selected, char16_t typed);

    // Another menu has opened: what was typed before is over.
    void Reset() { letters_.clear(); }

  private:
    const Clock& clock_;
    std::u16string letters_;
    std::uint32_t lastTick_ = 0;
};

// How often the cursor key moves from the selected item to the target: down when it is above 0.
int KeyStepsTo(const std::vector<const CMenuItemInfo*>& items, std::optional<std::size_t> selected,
               std::size_t target);

}  // namespace vbr
