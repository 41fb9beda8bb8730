// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

#include "diagnostics/error_report.h"
#include "diagnostics/guarded_section.h"
#include "diagnostics/win32/file_log.h"
#include "platform/win32/win_alert_box.h"
#include "platform/win32/win_autostart.h"
#include "platform/win32/win_clock.h"
#include "platform/win32/win_fault_catcher.h"
#include "platform/win32/win_file_access.h"
#include "platform/win32/win_keyboard_layouts.h"
#include "platform/win32/win_locale.h"
#include "platform/win32/win_named_objects.h"
#include "platform/win32/win_profile_store.h"
#include "settings/embedded_strings.h"
#include "settings/file_locations.h"
#include "settings/settings.h"
#include "shell/command_line.h"
#include "shell/hotkey_service.h"
#include "shell/instance_control.h"
#include "shell/temp_files.h"
#include "shell/win32/program.h"

namespace vbr {

// The process from its start to its end.
class Application {
  public:
    // A forced route is for tests; otherwise the system's is taken.
    explicit Application(std::optional<RouteKind> forcedRoute = std::nullopt);

    // Settles what this process is and runs it; the exit code. `cmdLine` is the raw command line
    // without the program path.
    int Main(std::u16string_view cmdLine);

  private:
    void StartLogIfWanted();
    int RunResident(const CVBRCmdLine& cmdLine);
    void ShowHelp();
    // A line that parts off a run of the program, with the time behind it.
    void WriteBanner(std::u16string_view text);
    std::u16string DateAndTime() const;

    std::optional<RouteKind> forcedRoute_;
    WinClock clock_;
    WinLocale locale_;
    WinKeyboardLayouts layouts_;
    WinFileAccess access_;
    WinProfileStore profile_;
    WinNamedObjects objects_;
    WinAutostart autostart_;
    FileLocations locations_;
    CVBRSettings settings_;
    FileLog log_;
    EmbeddedStrings strings_;
    WinAlertBox alerts_;
    WinFaultCatcher faults_;
    ErrorReport report_;
    GuardedSections guard_;
    MessageList messages_;  // of this run, for the user's report
    TempFileList tempFiles_;
    TakenNames taken_;
    InstanceControl instance_;
};

}  // namespace vbr
