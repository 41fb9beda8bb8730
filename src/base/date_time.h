// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace vbr {

// A calendar date and time of day, field by field as Win32's SYSTEMTIME. Year 0 means unset.
struct SystemTime {
    std::uint16_t Year = 0;
    std::uint16_t Month = 0;      // 1 to 12
    std::uint16_t DayOfWeek = 0;  // 0 is Sunday
    std::uint16_t Day = 0;        // 1 to 31
    std::uint16_t Hour = 0;
    std::uint16_t Minute = 0;
    std::uint16_t Second = 0;
    std::uint16_t Milliseconds = 0;

    bool operator==(const SystemTime&) const = default;
};

}  // namespace vbr
