// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "menu/phrase_menu_handler.h"
#include "menu/right_click_menu.h"
#include "phrases/command_tree.h"
#include "platform/log.h"

namespace vbr {

// Carries out what the right-click menu of the phrase menu asks for. Belongs to the main thread.
class RightMenuCommands {
  public:
    struct Parts {
        const CVBRCommandTree& Tree;
        IDataNeededHander_MenuSelf& Menu;
        // The phrase's text or RTF source as it would be delivered.
        std::function<std::u16string(const VBRCommand&)> Expand;
        // Puts plain text or RTF source on the clipboard; false when that fails.
        std::function<bool(bool plain, std::u16string_view text)> Copy;
        // Puts the history item of that index on the clipboard; false when that fails.
        std::function<bool(std::size_t index)> CopyHistoryItem;
        // The clipboard is not given back what it held before the query.
        std::function<void()> KeepClipboard;
        vbr::Log& Log;
    };

    explicit RightMenuCommands(Parts parts) : parts_(std::move(parts)) {}

    // A code that is not in RightMenuCode does nothing. The item counts as used for any other. True
    // when the phrase menu is to close.
    bool OnRightMenuCommand(std::uint32_t code, std::uint32_t id);

  private:
    bool CopyItem(std::uint32_t id);

    Parts parts_;
};

}  // namespace vbr
