// SPDX-License-Identifier: MIT
#include "menu/right_menu_commands.h"

#include "base/text.h"
#include "menu/menu_item_info.h"

namespace vbr {

bool RightMenuCommands::OnRightMenuCommand(std::uint32_t code, std::uint32_t id) {
    if (code > kLastRightMenuCode) {
        return false;
    }
    if (static_cast<RightMenuCode>(code) == RightMenuCode::Copy) {
        if (CopyItem(id)) {
            parts_.KeepClipboard();
        } else {
            parts_.Log.LogError(Concat(u"Cannot copy the item ", id));
        }
    } else {
        parts_.Log.Write(Concat(u"Right-click command ", code, u" of item ", id, u" is off"));
    }
    parts_.Menu.RememberCommand(id);
    return false;
}

bool RightMenuCommands::CopyItem(std::uint32_t id) {
    const VBRCommand* record = parts_.Tree.FindCommand(id);
    if (record && !record->IsGroup()) {
        return parts_.Copy(record->DataType != kDataTypeRtf, parts_.Expand(*record));
    }
    return id >= kFirstHistoryItem && parts_.CopyHistoryItem(id - kFirstHistoryItem);
}

}  // namespace vbr
