// SPDX-License-Identifier: MIT
#pragma once

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
    struct Collaborators {
        const CVBRCommandTree& Tree;
        IDataNeededHander_MenuSelf& Menu;
        // The phrase's text or RTF source as it would be delivered.
        std::function<std::u16string(const VBRCommand&)> Expand;
        // Puts plain text or RTF source on the clipboard, where it stays; false when that fails.
        std::function<bool(bool plain, std::u16string_view text)> Copy;
        // Puts the history item on the clipboard, where it stays; false when that fails.
        std::function<bool(ClipId item)> CopyHistoryItem;
        vbr::Log& Log;
    };

    explicit RightMenuCommands(Collaborators with) : with_(std::move(with)) {}

    // A code that is not in RightMenuCode does nothing. The item counts as used for any other. True
    // when the phrase menu is to close.
    bool OnRightMenuCommand(std::uint32_t code, const MenuChoice& item);

  private:
    bool CopyItem(const MenuChoice& item);

    Collaborators with_;
};

}  // namespace vbr
