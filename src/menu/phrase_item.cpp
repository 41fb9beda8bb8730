// SPDX-License-Identifier: MIT
#include "menu/phrase_item.h"

#include "base/text.h"
#include "resources/resource_ids.h"

namespace vbr {

CMenuItemInfo PhraseItemMaker::DescribePhrase(const VBRCommand& record,
                                              const MacroInput& input) const {
    PhraseMenuTexts texts = previews_.BuildMenuTexts(record, input);
    CMenuItemInfo info;
    info.Label = MenuLabel(texts.Caption);
    info.CursorPos = texts.CursorIndex;
    info.Tip =
        Concat(texts.Tip, u"\n\n        ", strings_.LoadString(kStrRightClickForExtendedMenu));
    info.ExpandedText = std::move(texts.Preview);
    if (const std::u16string badge = previews_.LayoutBadge(texts.Layout); !badge.empty()) {
        info.RightText = Concat(u"+", locale_.Upper(badge));
    }
    info.PhraseData = CutUnits(record.Cmd, kItemTextMax);
    info.DataType = record.DataType;
    info.Subject = {MenuSubjectKind::Phrase, record.CMDID};
    info.CommandId = record.CMDID;
    return info;
}

}  // namespace vbr
