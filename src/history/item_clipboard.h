// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "history/history_queue.h"
#include "history/item_text.h"
#include "platform/bitmaps.h"
#include "platform/clipboard_access.h"
#include "platform/locale.h"
#include "platform/log.h"

namespace vbr {

// Puts history items on the clipboard. False, with a line in the log and the clipboard as far as it
// got, when another program holds it or the system refuses. Belongs to the main thread.
class ItemClipboard {
  public:
    struct Collaborators {
        const CCHQueue& Queue;
        ClipboardAccess& Access;
        vbr::Bitmaps& Bitmaps;
        ItemTexts& Texts;
        const vbr::Locale& Locale;
        vbr::Log& Log;
    };

    explicit ItemClipboard(Collaborators with) : with_(with) {}

    // The item in its own format, without its alternatives. False outside the queue, and for HTML.
    bool PutOnClipboard(std::size_t index);
    // The same for the item of that id, wherever it stands by now. False when it is gone.
    bool PutItemOnClipboard(std::uint32_t id);
    // The item's text, an empty one for what isn't text. False outside the queue.
    bool PutOnClipboardAsPlainText(std::size_t index);

    // Empties the clipboard and puts the block there, with the user's language.
    bool SetClipboardBlock(ClipboardBlock block);
    // With its terminator.
    bool SetClipboardText(std::u16string_view text);
    // Beside what the clipboard holds.
    bool PutBitmapOnClipboard(const Bitmap& bitmap);

  private:
    bool PutItem(const CCHItem& item);
    bool Write(ClipboardSession& clipboard, const ClipboardBlock& block);

    Collaborators with_;
};

}  // namespace vbr
