// SPDX-License-Identifier: MIT
#include "exchange/clipboard_snapshot.h"

#include <utility>

#include "base/text.h"

namespace vbr {

bool CClipboardSnapshot::Take() {
    ClearRestore();
    bool whole = false;
    {
        const auto session = clipboard_.Open(kTakePatienceMs);
        if (!session) {
            log_.LogError(u"Clipboard snapshot not taken: another program keeps it open");
            return false;
        }
        whole = ReadFormats(*session);
    }
    bRestore_ = true;
    // Reading can change it: an owner gives its data only when it is asked.
    takenAt_ = clipboard_.SequenceNumber();
    return whole;
}

bool CClipboardSnapshot::ReadFormats(const ClipboardSession& session) {
    const std::vector<std::uint32_t> formats = session.Formats();
    for (std::size_t i = 0; i < formats.size(); ++i) {
        if (!session.DoesOwnerAnswer(kOwnerAnswerMs)) {
            log_.LogError(
                Concat(u"Clipboard snapshot: the owner doesn't answer, formats left out: ",
                       ToDecimal(static_cast<std::int64_t>(formats.size() - i))));
            return false;
        }
        if (auto block = session.Read(formats[i])) {
            blocks_.push_back(std::move(*block));
        } else {
            LogFormat(u"left out", formats[i], session.FormatName(formats[i]));
        }
    }
    return true;
}

bool CClipboardSnapshot::RestoreClipboardSnapshot() {
    if (!bRestore_ || blocks_.empty()) {
        return true;
    }
    // 0 is the number of a program that may not know it.
    const std::uint32_t now = clipboard_.SequenceNumber();
    const bool stillThere = now != 0 && now == takenAt_;
    const bool replaced = failedAt_ && now != *failedAt_;
    if (!stillThere && !replaced) {
        const auto session = clipboard_.Open(kRestorePatienceMs);
        if (!session) {
            log_.LogError(u"Clipboard not restored: another program keeps it open");
            failedAt_ = clipboard_.SequenceNumber();
            return false;
        }
        WriteFormats(*session);
    }
    ClearRestore();
    return true;
}

void CClipboardSnapshot::WriteFormats(ClipboardSession& session) {
    if (!session.Empty()) {
        log_.LogError(u"Clipboard not restored: it can't be emptied");
        return;
    }
    for (const ClipboardBlock& block : blocks_) {
        if (!session.Write(block)) {
            LogFormat(u"not restored", block.Format, block.Name);
        }
    }
}

void CClipboardSnapshot::ClearRestore() {
    bRestore_ = false;
    failedAt_.reset();
    blocks_ = {};
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
