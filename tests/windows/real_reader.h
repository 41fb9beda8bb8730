// SPDX-License-Identifier: MIT
#pragma once

#include "exchange/selected_text.h"
#include "platform/win32/win_ansi_text.h"
#include "platform/win32/win_clipboard_access.h"
#include "platform/win32/win_clock.h"
#include "platform/win32/win_desktop_windows.h"
#include "platform/win32/win_input_injector.h"
#include "platform/win32/win_input_join.h"
#include "platform/win32/win_target_windows.h"

namespace vbr {

// The reader of the selection over the real desktop.
struct RealReader {
    explicit RealReader(vbr::Log& log) : Log(log) {}

    vbr::Log& Log;
    WinClipboardAccess Clipboard{nullptr};
    WinAnsiText Ansi;
    WinInputInjector Input;
    WinInputJoin Join;
    WinDesktopWindows Windows;
    WinTargetWindows Targets;
    WinClock Clock;
    MyCopyGuard OwnCopy{Clipboard, GetCurrentProcessId(), Log};
    CClipboardSnapshot Snapshot{Clipboard, Log};
    TargetInput Keys{
        {.Input = Input, .Join = Join, .Windows = Targets, .Clock = Clock, .Log = Log}};
    SelectedTextReader Selection{{.Clipboard = Clipboard,
                                  .Snapshot = Snapshot,
                                  .Ansi = Ansi,
                                  .Input = Input,
                                  .Keys = Keys,
                                  .Windows = Windows,
                                  .Clock = Clock,
                                  .OwnCopy = OwnCopy,
                                  .Log = Log,
                                  .HotkeyVk = [] { return std::uint16_t{0}; },
                                  .TerminalClasses = [] { return std::u16string(); }}};
};

}  // namespace vbr
