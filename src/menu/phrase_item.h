// SPDX-License-Identifier: MIT
#pragma once

#include "macros/phrase_texts.h"
#include "menu/menu_item_info.h"
#include "phrases/command_record.h"
#include "platform/locale.h"
#include "platform/strings.h"

namespace vbr {

// Makes what the menu shows of one phrase.
class PhraseItemMaker {
  public:
    PhraseItemMaker(const PhraseTexts& previews, const Locale& locale, const Strings& strings)
        : previews_(previews), locale_(locale), strings_(strings) {}

    // The item's texts, kind and id; its place in the menu is the caller's.
    CMenuItemInfo DescribePhrase(const VBRCommand& record, const MacroInput& input) const;

  private:
    const PhraseTexts& previews_;
    const Locale& locale_;
    const Strings& strings_;
};

}  // namespace vbr
