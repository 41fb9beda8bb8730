// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

#include "base/date_time.h"
#include "platform/locale.h"

namespace vbr {

enum class DateTimeMode {
    DateTime = 0,  // the long date, a blank, the time
    Date = 1,      // the long date
    Time = 2,      // the time, 24-hour form with seconds
    DateTimeWithoutWeekday = 3,
    DateWithoutWeekday = 4,
};

inline constexpr std::size_t kDateTimeModes = 5;

// A date or time as the language writes it. Any other mode gives an empty text.
std::u16string FormatDateTime(DateTimeMode mode, const Locale& locale, Lcid lcid,
                              const SystemTime& time);

}  // namespace vbr
