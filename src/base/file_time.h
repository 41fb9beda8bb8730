// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

#include "base/date_time.h"

namespace vbr {

// A point in time as FILETIME counts it: units of 100 nanoseconds since the year 1601, UTC.
using FileTicks = std::uint64_t;

// The calendar date of a count; nothing when it is beyond what a FILETIME can tell.
std::optional<SystemTime> SystemTimeOf(FileTicks ticks);

// The count of a calendar date, whose day of the week is ignored; nothing for a date or time that
// does not exist.
std::optional<FileTicks> FileTicksOf(const SystemTime& time);

}  // namespace vbr
