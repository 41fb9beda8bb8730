// SPDX-License-Identifier: MIT
#include "base/file_time.h"

#include <chrono>

namespace vbr {
namespace {

using Ticks = std::chrono::duration<std::int64_t, std::ratio<1, 10'000'000>>;
constexpr std::chrono::sys_days kStart{std::chrono::year{1601} / 1 / 1};

}  // namespace

std::optional<SystemTime> SystemTimeOf(FileTicks ticks) {
    using namespace std::chrono;
    if (ticks > static_cast<FileTicks>(INT64_MAX)) {
        return std::nullopt;
    }
    const Ticks sinceStart(static_cast<std::int64_t>(ticks));
    const days wholeDays = floor<days>(sinceStart);
    const sys_days day = kStart + wholeDays;
    const year_month_day date(day);
    const hh_mm_ss time(floor<milliseconds>(sinceStart - wholeDays));
    SystemTime out;
    out.Year = static_cast<std::uint16_t>(static_cast<int>(date.year()));
    out.Month = static_cast<std::uint16_t>(static_cast<unsigned>(date.month()));
    out.DayOfWeek = static_cast<std::uint16_t>(weekday(day).c_encoding());
    out.Day = static_cast<std::uint16_t>(static_cast<unsigned>(date.day()));
    out.Hour = static_cast<std::uint16_t>(time.hours().count());
    out.Minute = static_cast<std::uint16_t>(time.minutes().count());
    out.Second = static_cast<std::uint16_t>(time.seconds().count());
    out.Milliseconds = static_cast<std::uint16_t>(time.subseconds().count());
    return out;
}

std::optional<FileTicks> FileTicksOf(const SystemTime& time) {
    using namespace std::chrono;
    constexpr int kLastYear = 30'827;  // the last whole year that a FILETIME can tell
    const year_month_day date(year(time.Year), month(time.Month), day(time.Day));
    if (time.Year < 1601 || time.Year > kLastYear || !date.ok() || time.Hour > 23 ||
        time.Minute > 59 || time.Second > 59 || time.Milliseconds > 999) {
        return std::nullopt;
    }
    const Ticks count = sys_days(date) - kStart + hours(time.Hour) + minutes(time.Minute) +
                        seconds(time.Second) + milliseconds(time.Milliseconds);
    return static_cast<FileTicks>(count.count());
}

}  // namespace vbr
