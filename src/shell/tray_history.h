// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

#include "history/history_queue.h"
#include "history/item_text.h"
#include "platform/clipboard_access.h"
#include "platform/menu_data.h"

namespace vbr {

// The newest clips as entries of the tray menu. While the menu is open, an entry's number stands
// for the clip that it shows, wherever that moves; at other times for the clip at that place.
// Belongs to the main thread.
class TrayHistory {
  public:
    struct Collaborators {
        const CCHQueue& Queue;
        ItemTexts& Texts;
        ClipboardAccess& Clipboard;
        // Puts the item of that id on the clipboard; false when that fails.
        std::function<bool(std::uint32_t id)> Copy;
    };

    explicit TrayHistory(Collaborators with) : with_(std::move(with)) {}

    // The clip whose text is on the clipboard is the default entry.
    std::vector<MenuEntry> Entries();
    // The menu was closed and what was chosen carried out.
    void Forget() { shown_.clear(); }

    // Null for a number that stands for none, and when the clip is gone.
    const CCHItem* ItemOf(int command) const;
    // False then, and when the clipboard can't be had.
    bool PutOnClipboard(int command);

  private:
    bool IsText(const CCHItem& item, std::u16string_view text) const;

    Collaborators with_;
    std::vector<std::uint32_t> shown_;  // ids of the clips in the open menu
};

}  // namespace vbr
