// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

#include "platform/clipboard_access.h"
#include "platform/clipboard_blocks.h"
#include "platform/locale.h"

namespace vbr {

// Plain text as it stands on the clipboard, with the locale that its other encodings come from.
std::vector<ClipboardBlock> PlainClipboardForm(std::u16string_view text, Lcid locale);

// Rich Text Format source on the clipboard: 8-bit, with its plain text unless that is empty and
// with its language unless that is 0. What is no source is there as its plain text alone.
std::vector<ClipboardBlock> RichClipboardForm(std::u16string_view source,
                                              std::u16string_view plainText, Lcid language);

// Replaces what the clipboard holds; false when another program keeps it open or the system
// refuses.
bool PutOnClipboard(const std::vector<ClipboardBlock>& blocks, ClipboardAccess& clipboard);

}  // namespace vbr
