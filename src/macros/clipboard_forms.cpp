// SPDX-License-Identifier: MIT
#include "macros/clipboard_forms.h"

#include <algorithm>

#include "platform/rich_source.h"

namespace vbr {

std::vector<ClipboardBlock> PlainClipboardForm(std::u16string_view text, Lcid locale) {
    return {StandardBlock(kClipUnicodeText, TextBytes(text)), LocaleBlock(locale)};
}

std::vector<ClipboardBlock> RichClipboardForm(std::u16string_view source,
                                              std::u16string_view plainText, Lcid language) {
    std::vector<ClipboardBlock> blocks;
    if (source.starts_with(u'{')) {
        blocks.push_back(NamedBlock(kRichTextFormat, TextBytes(ToAsciiRich(source))));
    }
    if (!plainText.empty()) {
        blocks.push_back(StandardBlock(kClipUnicodeText, TextBytes(plainText)));
    }
    if (language != 0) {
        blocks.push_back(LocaleBlock(language));
    }
    return blocks;
}

bool PutOnClipboard(const std::vector<ClipboardBlock>& blocks, ClipboardAccess& clipboard) {
    const std::unique_ptr<ClipboardSession> session = clipboard.Open(kClipboardPatienceMs);
    return session && session->Empty() &&
           std::all_of(blocks.begin(), blocks.end(),
                       [&session](const ClipboardBlock& block) { return session->Write(block); });
}

}  // namespace vbr
