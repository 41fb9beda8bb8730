// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

// What the tray window is told by other threads and programs. Outside programs send some of these
// numbers, so they never change.
namespace vbr {

inline constexpr std::uint32_t kMsgInstallTrayIcon = 32769;  // the icon thread: add the icon
inline constexpr std::uint32_t kMsgTrayNotify = 32770;       // the shell: mouse on the icon
inline constexpr std::uint32_t kMsgCommandFromSelf = 32780;  // the phrase menu: a choice
inline constexpr std::uint32_t kMsgShowMenuRequest = 32788;  // the showmenu watcher

// wParam of the registered instance signal.
inline constexpr std::uintptr_t kSignalAlreadyWorks = 0;
inline constexpr std::uintptr_t kSignalExit = 1;

// wParam of kMsgCommandFromSelf besides item ids.
inline constexpr std::int32_t kChoiceNone = -1;

inline constexpr std::uint32_t kTrayIconId = 10;
inline constexpr int kHotkeyId = 1;

}  // namespace vbr
