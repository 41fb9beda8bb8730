// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

#include "history/history_messages.h"
#include "platform/log.h"

namespace vbr {

// What the tray window does about a notice of the history.
struct HistoryReaction {
    bool Refresh = false;  // the icon and the pane
    bool PlaySound = false;
};

// Judges the notices of the history: one clipboard content brings one reaction.
class HistoryNotices {
  public:
    explicit HistoryNotices(Log& log) : log_(log) {}

    // `sequence` is the clipboard's number now, `count` that of the items.
    HistoryReaction OnNotice(std::uint32_t code, std::uint32_t parameter, std::uint32_t sequence,
                             std::size_t count);

  private:
    Log& log_;
    std::uint32_t lastSequence_ = 0;
};

}  // namespace vbr
