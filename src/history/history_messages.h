// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

// Messages, timers and notices of the clipboard handler's window. Outside programs know them: they
// never change.
namespace vbr {

inline constexpr std::uint32_t WM_SAVE_HISTORY = 32769;  // save what is unsaved
inline constexpr std::uint32_t WM_DELAY_UNLOCK = 32770;  // the end of a block

inline constexpr std::uintptr_t kTimerSave = 2343;
inline constexpr std::uint32_t kSaveTimerMs = 1000;
inline constexpr std::uintptr_t kTimerLookAgain = 1;  // nobody else knows it

// Notices to the parent. A change has a parameter behind the header.
inline constexpr std::uint32_t kNoticeHistoryChanged = 2816;
inline constexpr std::uint32_t kNoticeHistoryLoaded = 2817;

enum class HistoryChange : std::uint32_t {
    Captured = 0,
    ByCommand = 1,
    AtCreation = 2,
};

}  // namespace vbr
