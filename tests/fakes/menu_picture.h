// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "base/text.h"
#include "menu/menu_item_info.h"

namespace vbr {

// "1:a ~b -caption- *G(c)": a number, grayed "~", a separator, marked "*", a popup's children in
// brackets.
inline std::string Picture(const PhraseMenu& menu) {
    std::string picture;
    for (const PhraseMenuItem& item : menu) {
        const CMenuItemInfo& info = item.Info;
        picture += picture.empty() ? "" : " ";
        if (item.IsSeparator()) {
            picture += info.RightText.empty() ? "-" : "-" + Utf16ToUtf8(info.RightText) + "-";
            continue;
        }
        picture += info.Number() == 0 ? "" : std::to_string(info.Number()) + ":";
        picture +=
            Utf16ToUtf8(Concat(item.Grayed ? u"~" : u"", info.Mark ? u"*" : u"", info.Label));
        picture += item.IsPopup() ? "(" + Picture(item.Children) + ")" : "";
    }
    return picture;
}

}  // namespace vbr
