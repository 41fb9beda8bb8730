// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

// What the tray window is told by other threads and programs. Outside programs send some of these
// numbers, so they never change.
namespace vbr {

inline constexpr std::uint32_t kMsgInstallTrayIcon = 32769;   // the icon thread: add the icon
inline constexpr std::uint32_t kMsgTrayNotify = 32770;        // the shell: mouse on the icon
inline constexpr std::uint32_t kMsgQueryReady = 32771;        // the query wait thread: a query
inline constexpr std::uint32_t kMsgEditorState = 32772;       // the editor start thread
inline constexpr std::uint32_t kMsgUpdateResult = 32773;      // the update thread
inline constexpr std::uint32_t kMsgEditorEnded = 32774;       // the editor's end event
inline constexpr std::uint32_t kMsgGetPaneTitle = 32775;      // outside: the pane's title
inline constexpr std::uint32_t kMsgShowPane = 32776;          // outside: show the pane
inline constexpr std::uint32_t kMsgInstallSpy = 32778;        // the delayed start of the spy
inline constexpr std::uint32_t kMsgAllowWaitAgent = 32779;    // whether the hook side may wait
inline constexpr std::uint32_t kMsgCommandFromSelf = 32780;   // the phrase menu: a choice
inline constexpr std::uint32_t kMsgGetQueue = 32783;          // the clipboard handler
inline constexpr std::uint32_t kMsgHideTip = 32785;           // the menu: it has closed
inline constexpr std::uint32_t kMsgWaitError = 32786;         // the query wait thread failed
inline constexpr std::uint32_t kMsgShowMenuRequest = 32788;   // the showmenu watcher
inline constexpr std::uint32_t kMsgRightMenuCommand = 32789;  // the menu's right-click menu
inline constexpr std::uint32_t kMsgLanguageChanged = 32790;   // the language watcher
inline constexpr std::uint32_t kMsgPaneBlink = 32792;         // the pane blink watcher
inline constexpr std::uint32_t kMsgGetPaneText = 32793;       // the pane's selected text
inline constexpr std::uint32_t kMsgPhraseChanged = 32800;     // the saver: a file isn't as loaded
inline constexpr std::uint32_t kMsgHistorySaveEnded = 32801;  // the history's worker

// What the shell tells of the icon, as the window messages and the shell number it.
inline constexpr std::uint32_t kNoticeContextMenu = 123;  // the menu key, or behind a right click
inline constexpr std::uint32_t kNoticeLeftButtonUp = 514;
inline constexpr std::uint32_t kNoticeRightButtonUp = 517;
inline constexpr std::uint32_t kNoticeSelect = 1024;     // behind a left click
inline constexpr std::uint32_t kNoticeKeySelect = 1025;  // Enter, or the space bar
inline constexpr std::uint32_t kNoticeBalloonClick = 1029;

// wParam of the registered instance signal.
inline constexpr std::uintptr_t kSignalAlreadyWorks = 0;
inline constexpr std::uintptr_t kSignalExit = 1;

// Timers of the tray window, with their periods.
inline constexpr std::uintptr_t kTimerPaneHover = 1244;
inline constexpr std::uint32_t kPaneHoverMs = 1000;
inline constexpr std::uintptr_t kTimerHideBalloon = 1245;
inline constexpr std::uintptr_t kTimerPhraseMenu = 1247;
inline constexpr std::uint32_t kPhraseMenuMs = 500;
inline constexpr std::uintptr_t kTimerLateWatchers = 1248;
inline constexpr std::uint32_t kLateWatchersMs = 3000;

// Nobody else knows these. The first is the menus' tips'.
inline constexpr std::uintptr_t kTimerInstallIcon = 9;
inline constexpr std::uint32_t kInstallIconMs = 2000;
inline constexpr std::uintptr_t kTimerBlink = 2;
inline constexpr std::uint32_t kBlinkMs = 250;
inline constexpr std::uintptr_t kTimerInstallSpy = 3;
inline constexpr std::uint32_t kInstallSpyMs = 2000;
inline constexpr std::uintptr_t kTimerEnd = 4;
inline constexpr std::uint32_t kEndMs = 50;
inline constexpr std::uintptr_t kTimerHeldHotkey = 5;
inline constexpr std::uint32_t kHeldHotkeyMs = 10;
inline constexpr std::uintptr_t kTimerReadSettings = 6;
inline constexpr std::uint32_t kReadSettingsMs = 1000;  // doubled each time
inline constexpr std::uint32_t kReadSettingsMostMs = 64'000;
inline constexpr std::uintptr_t kTimerSaveAgain = 7;
inline constexpr std::uintptr_t kTimerTargetAnswer = 8;
inline constexpr std::uintptr_t kTimerFirstRun = 10;
inline constexpr std::uint32_t kFirstRunMs = 1000;

inline constexpr std::uint32_t kTrayIconId = 10;
inline constexpr std::uint32_t kHistoryControlId = 1333;
inline constexpr int kHotkeyId = 1;

}  // namespace vbr
