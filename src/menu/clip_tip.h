// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "history/history_item.h"
#include "history/item_text.h"
#include "platform/locale.h"
#include "platform/strings.h"

namespace vbr {

// What a tip tells of a clip outside the phrase menu: what a choice does, length, format, source,
// date, and the beginning of its text.
std::u16string ClipTip(const CCHItem& item, ItemTexts& texts, const Locale& locale,
                       const Strings& strings);

}  // namespace vbr
