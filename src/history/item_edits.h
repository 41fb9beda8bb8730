// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>

#include "history/history_item.h"
#include "history/history_queue.h"
#include "platform/ansi_text.h"
#include "platform/locale.h"
#include "platform/log.h"
#include "platform/rich_text_engine.h"

namespace vbr {

// The edits that change the text of a history item in place. An item that was changed counts as
// unsaved from then on, and a save is requested. An index outside, or an item that isn't text or
// RTF, gives 0. Belongs to the main thread.
class ItemEdits {
  public:
    struct Collaborators {
        CCHQueue& Queue;
        const AnsiText& Ansi;
        const vbr::Locale& Locale;
        RichTextEngine& Engine;
        vbr::Log& Log;
        std::function<void()> RequestSave;
    };

    explicit ItemEdits(Collaborators with) : with_(std::move(with)) {}

    // Whether the item was written anew, which it is also when no letter changed. Its other formats
    // and its source go.
    bool ChangeItemCase(LetterCase letterCase, std::size_t index);
    // The number of characters taken from both ends. A text loses its other formats and its source;
    // an RTF keeps them.
    std::size_t TrimItem(std::size_t index);
    // The number of line breaks that became a blank; a text is trimmed then.
    std::size_t JoinItem(std::size_t index);

  private:
    // Lets `edit` change the item and count; the count, 0 when the item stayed as it was.
    std::size_t Edit(std::size_t index, const std::function<std::size_t(CCHItem&)>& edit);
    bool TurnCase(CCHItem& item, LetterCase letterCase);
    bool TurnRichCase(CCHItem& item, LetterCase letterCase);
    std::size_t EditText(CCHItem& item, std::size_t (*edit)(std::u16string&));
    std::size_t EditRich(CCHItem& item, std::size_t (*edit)(RichTextEngine&));
    bool WriteBackRich(CCHItem& item);
    void LogUnreadable(const CCHItem& item);

    Collaborators with_;
};

}  // namespace vbr
