// SPDX-License-Identifier: MIT
#include "history/history_notices.h"

namespace vbr {

HistoryReaction HistoryNotices::OnNotice(std::uint32_t code, std::uint32_t parameter,
                                         std::uint32_t sequence, std::size_t count) {
    if (code == kNoticeHistoryLoaded) {
        return {.Refresh = true};
    }
    if (code != kNoticeHistoryChanged) {
        return {};
    }
    if (sequence == lastSequence_) {
        log_.Write(Concat(u"Event OnClipboardHistoryChanged, Sequnces Numbers Is EQUAL: ", sequence,
                          u", do not query data from clipboard"));
        return {};
    }
    lastSequence_ = sequence;
    log_.Write(Concat(u"Event OnClipboardHistoryChanged, new Sequnce Number: ", sequence));
    log_.Write(Concat(u"Event OnClipboardHistoryChanged, Count=", count));
    return {.Refresh = true,
            .PlaySound = parameter == static_cast<std::uint32_t>(HistoryChange::Captured)};
}

}  // namespace vbr
