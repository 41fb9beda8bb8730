// SPDX-License-Identifier: MIT
#include "platform/win32/win_clock.h"

#include "platform/win32/windows.h"

namespace vbr {
namespace {

SystemTime FromWindows(const SYSTEMTIME& time) {
    return {time.wYear, time.wMonth,  time.wDayOfWeek, time.wDay,
            time.wHour, time.wMinute, time.wSecond,    time.wMilliseconds};
}

}  // namespace

SystemTime WinClock::LocalTime() const {
    SYSTEMTIME time;
    GetLocalTime(&time);
    return FromWindows(time);
}

SystemTime WinClock::UtcTime() const {
    SYSTEMTIME time;
    GetSystemTime(&time);
    return FromWindows(time);
}

std::uint32_t WinClock::TickCount() const {
    return GetTickCount();
}

void WinClock::Sleep(std::uint32_t milliseconds) {
    ::Sleep(milliseconds);
}

}  // namespace vbr
