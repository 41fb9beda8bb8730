// SPDX-License-Identifier: MIT
#include "history/item_clipboard.h"

#include "base/text.h"

namespace vbr {
namespace {

// A held clipboard is told to the user at once.

// Text with its terminator, up to the first zero; nothing at all for an empty text.
template <typename Unit>
ItemBytes TextOrNothing(std::basic_string_view<Unit> text) {
    return text.empty() ? ItemBytes() : TextBytes(text);
}

}  // namespace

bool ItemClipboard::PutOnClipboard(std::size_t index) {
    const CCHItem* const item = with_.Queue.GetItem(index);
    return item && PutItem(*item);
}

bool ItemClipboard::PutItemOnClipboard(std::uint32_t id) {
    const CCHItem* const item = with_.Queue.FindById(id);
    return item && PutItem(*item);
}

bool ItemClipboard::PutOnClipboardAsPlainText(std::size_t index) {
    const CCHItem* const item = with_.Queue.GetItem(index);
    return item && SetClipboardText(with_.Texts.PlainText(*item));
}

bool ItemClipboard::PutItem(const CCHItem& item) {
    switch (item.format) {
        case CHF_ANSI_TEXT:
            return SetClipboardBlock(StandardBlock(kClipText, TextOrNothing(item.ByteText())));
        case CHF_UNICODE_TEXT:
            return SetClipboardBlock(
                StandardBlock(kClipUnicodeText, TextOrNothing(item.WideText())));
        case CHF_RTF:
            return SetClipboardBlock(NamedBlock(kRichTextFormat, TextOrNothing(item.ByteText())));
        case CHF_KELPNOTES:
            return SetClipboardBlock(NamedBlock(kKelpNotesFormat, item.Data()));
        case CHF_BITMAP:
            return item.Picture() && PutBitmapOnClipboard(*item.Picture());
        default:
            return false;
    }
}

bool ItemClipboard::SetClipboardBlock(ClipboardBlock block) {
    const auto clipboard = with_.Access.Open(kClipboardPatienceMs);
    if (!clipboard) {
        with_.Log.LogError(u"Cannot open the clipboard for a history item");
        return false;
    }
    clipboard->Empty();
    if (!Write(*clipboard, block)) {
        return false;
    }
    Write(*clipboard, LocaleBlock(with_.Locale.UserDefault()));
    return true;
}

bool ItemClipboard::SetClipboardText(std::u16string_view text) {
    return SetClipboardBlock(StandardBlock(kClipUnicodeText, TextBytes(text)));
}

bool ItemClipboard::PutBitmapOnClipboard(const Bitmap& bitmap) {
    ClipboardBlock block = StandardBlock(kClipBitmap, {});
    block.Object = with_.Bitmaps.ObjectOf(bitmap);
    if (!block.Object) {
        with_.Log.LogError(u"Cannot take the bitmap of a history item");
        return false;
    }
    const auto clipboard = with_.Access.Open(kClipboardPatienceMs);
    if (!clipboard) {
        with_.Log.LogError(u"Cannot open the clipboard for a history item");
        return false;
    }
    return Write(*clipboard, block);
}

bool ItemClipboard::Write(ClipboardSession& clipboard, const ClipboardBlock& block) {
    if (clipboard.Write(block)) {
        return true;
    }
    with_.Log.LogError(Concat(u"Cannot put ", block.Bytes.size(),
                              u" bytes of a history item on the clipboard, format ", block.Format,
                              block.Name));
    return false;
}

}  // namespace vbr
