// SPDX-License-Identifier: MIT
#include "menu/right_menu_commands.h"

#include "base/text.h"

namespace vbr {

bool RightMenuCommands::OnRightMenuCommand(std::uint32_t code, const MenuChoice& item) {
    if (code > kLastRightMenuCode) {
        return false;
    }
    if (static_cast<RightMenuCode>(code) != RightMenuCode::Copy) {
        with_.Log.Write(Concat(u"Right-click command ", code, u" is not available"));
    } else if (!CopyItem(item)) {
        with_.Log.LogError(u"Cannot copy the item of the menu");
    }
    if (const auto* file = std::get_if<std::filesystem::path>(&item)) {
        with_.Menu.RememberCommand(*file);
    }
    return false;
}

bool RightMenuCommands::CopyItem(const MenuChoice& item) {
    if (const auto* clip = std::get_if<ClipId>(&item)) {
        return with_.CopyHistoryItem(*clip);
    }
    const auto* file = std::get_if<std::filesystem::path>(&item);
    const VBRCommand* record = file ? with_.Tree.FindByFile(*file) : nullptr;
    return record && with_.Copy(record->DataType != kDataTypeRtf, with_.Expand(*record));
}

}  // namespace vbr
