// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/file_time.h"
#include "history/history_item.h"

namespace vbr {

// What an item's ".info" file says. Texts are read back up to 259 characters.
struct ItemInfo {
    ItemFormat DataType = CHF_UNICODE_TEXT;  // written for people; not read back
    bool Protected = false;
    std::u16string WndName;
    std::u16string ExeName;
    std::u16string Url;
    std::vector<std::u16string> Files;  // names in the same folder, the primary's first
    FileTicks Time = 0;                 // local time of the capture; 0 when there is none
};

// The whole file.
std::string WriteItemInfo(const ItemInfo& info);

// Any bytes can be read; what is missing stays empty.
ItemInfo ReadItemInfo(std::string_view bytes);

// The file with another protection and all else as it is.
std::string WithProtection(std::string_view bytes, bool value);

// Whether the name can become a path that leads to the folder that it stands in and nowhere else.
bool IsPlainFileName(std::u16string_view name);

}  // namespace vbr
