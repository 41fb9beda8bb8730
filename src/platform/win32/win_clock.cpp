// SPDX-License-Identifier: MIT
#include "platform/win32/win_clock.h"

#include "platform/win32/windows.h"

#include "platform/win32/handle.h"

namespace vbr {
namespace {

SystemTime FromWindows(const SYSTEMTIME& time) {
    return {time.wYear, time.wMonth,  time.wDayOfWeek, time.wDay,
            time.wHour, time.wMinute, time.wSecond,    time.wMilliseconds};
}

// The system's own sleep ends with one of its ticks.
constexpr std::uint32_t kTickMs = 16;
constexpr DWORD kHighResolution = 2;  // CREATE_WAITABLE_TIMER_HIGH_RESOLUTION
constexpr LONGLONG kUnitsPerMs = 10'000;

// False when the system has no such timer.
bool SleepExactly(std::uint32_t milliseconds) {
    const UniqueHandle timer(
        CreateWaitableTimerExW(nullptr, nullptr, kHighResolution, TIMER_ALL_ACCESS));
    LARGE_INTEGER due;
    due.QuadPart = -kUnitsPerMs * milliseconds;
    return timer && SetWaitableTimer(timer.get(), &due, 0, nullptr, nullptr, FALSE) &&
           WaitForSingleObject(timer.get(), INFINITE) == WAIT_OBJECT_0;
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
    if (milliseconds == 0 || milliseconds > kTickMs || !SleepExactly(milliseconds)) {
        ::Sleep(milliseconds);
    }
}

}  // namespace vbr
