// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "base/date_time.h"

namespace vbr {

inline constexpr std::u16string_view kDefaultLogPrefix = u"EXE_Agent";

// A line of the log: prefix, ": [month/day/year hours:minutes:seconds] " and the text, ended by
// CR LF. A text of 102,388 UTF-16 units or more, prefix and date counted in, goes alone.
std::u16string FormLogEntry(std::u16string_view prefix, std::u16string_view text,
                            const SystemTime& localTime);

// A line that waits for others of its entry: the default prefix, date and text, without an end.
std::u16string FormQueuedLine(std::u16string_view text, const SystemTime& localTime);

// The entry, ended by CR LF once.
std::u16string EndLogEntry(std::u16string entry);

}  // namespace vbr
