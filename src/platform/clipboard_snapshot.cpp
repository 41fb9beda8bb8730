// SPDX-License-Identifier: MIT
#include "platform/clipboard_snapshot.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/text.h"
#include "platform/clipboard_text.h"
#include "platform/kept_formats.h"

namespace vbr {

bool CClipboardSnapshot::Take() {
    ClearRestore();
    const auto session = clipboard_.Open(kClipboardPatienceMs);
    if (!session) {
        log_.LogError(u"Clipboard snapshot not taken: another program keeps it open");
        return false;
    }
    bRestore_ = ReadFormats(*session);
    if (!bRestore_) {
        ClearRestore();
    }
    return bRestore_;
}

bool CClipboardSnapshot::ReadFormats(const ClipboardSession& session) {
    const auto formats = KeptFormats(session);
    if (!formats) {
        log_.Write(u"Clipboard snapshot not taken: only its owner can give the content");
        return false;
    }
    for (const std::uint32_t format : *formats) {
        if (!session.DoesOwnerAnswer(kOwnerAnswerMs)) {
            log_.LogError(u"Clipboard snapshot not taken: the owner doesn't answer");
            return false;
        }
        if (auto block = session.Read(format)) {
            blocks_.push_back(std::move(*block));
        } else {
            LogFormat(u"left out", format, session.FormatName(format));
        }
    }
    return true;
}

void CClipboardSnapshot::PutBack(ClipboardSession& session) {
    if (!session.Empty()) {
        log_.LogError(u"Clipboard not restored: it can't be emptied");
    } else {
        // It was kept when the user copied it, if it was to be kept.
        const std::vector<ClipboardBlock> marks = PassingMarks();
        std::erase_if(blocks_, [&marks](const ClipboardBlock& block) {
            return std::ranges::any_of(marks, [&block](const ClipboardBlock& mark) {
                return EqualsNoCase(mark.Name, block.Name);
            });
        });
        if (!blocks_.empty()) {
            std::ranges::copy(marks, std::back_inserter(blocks_));
        }
        for (const ClipboardBlock& block : blocks_) {
            if (!session.Write(block)) {
                LogFormat(u"not restored", block.Format, block.Name);
            }
        }
    }
    ClearRestore();
}

bool CClipboardSnapshot::RestoreClipboardSnapshot() {
    const auto isOwn = [this] { return ownContent_ == clipboard_.SequenceNumber(); };
    if (!bRestore_ || !isOwn()) {
        ClearRestore();
        return true;
    }
    const auto session = clipboard_.Open(kClipboardPatienceMs);
    if (!session) {
        log_.LogError(u"Clipboard not restored: another program keeps it open");
        return false;
    }
    // Something newer may have come during the wait.
    if (isOwn()) {
        PutBack(*session);
    }
    ClearRestore();
    return true;
}

void CClipboardSnapshot::ClearRestore() {
    bRestore_ = false;
    ownContent_.reset();
    blocks_ = {};
}

std::optional<std::u16string> CClipboardSnapshot::Text() const {
    const auto text = std::ranges::find(blocks_, kClipUnicodeText, &ClipboardBlock::Format);
    return text == blocks_.end() ? std::nullopt : std::optional(UnicodeTextOf(*text));
}

void CClipboardSnapshot::LogFormat(std::u16string_view what, std::uint32_t format,
                                   std::u16string_view name) {
    std::u16string line = Concat(u"Clipboard snapshot: format ", ToDecimal(format));
    if (!name.empty()) {
        line += Concat(u" (", name, u")");
    }
    log_.Write(Concat(line, u" ", what));
}

}  // namespace vbr
