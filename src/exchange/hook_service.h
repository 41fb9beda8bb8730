// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "exchange/hook_library.h"
#include "exchange/query.h"
#include "exchange/query_road.h"
#include "platform/desktop_windows.h"
#include "platform/log.h"
#include "platform/named_objects.h"

namespace vbr {

// What the hook library is installed with.
struct HookServiceStart {
    WindowHandle TrayWindow = 0;
    std::uint32_t QueryMessage = 0;
    std::u16string LogPath;  // empty while the log is off
    std::uint16_t LogAtom = 0;
    bool AllowWaitAnswer = false;
    QueryRoadChoice Road = QueryRoadChoice::OfSystem;
};

// The text for a code of WPInstallParams, with a line that names the code.
std::u16string DescribeHookError(std::uint32_t code);

// Holds the hook library, asks it for the target, and starts queries. Belongs to the main thread.
class CVBRDLLService {
  public:
    CVBRDLLService(HookLibrary& library, NamedObjects& objects, DesktopWindows& windows,
                   QueryRoad& road, std::u16string libraryPath, Log& log)
        : library_(library),
          objects_(objects),
          windows_(windows),
          road_(road),
          libraryPath_(std::move(libraryPath)),
          log_(log) {}

    // Loads and installs the library. On a failure `errorCode` says why, as the library or this
    // service numbers it.
    bool InstallDLLService(const HookServiceStart& start, std::uint32_t& errorCode);

    // False when nothing is installed or the library refuses; it then stays loaded.
    bool UninstallDLLService();

    bool IsInstalled() const { return installed_; }
    const std::u16string& LibraryPath() const { return libraryPath_; }

    WindowHandle GetTargetWindow() { return installed_ ? library_.GetTargetWindow() : 0; }
    // The window to give the focus back to after one of this program's had it; 0 for none.
    WindowHandle GetTargetWindowOther() { return installed_ ? library_.GetTargetWindowOther() : 0; }

    // Starts a query about the target in front; `wParam` tells the hook library its cause. Local
    // means that `query` is filled.
    QueryStart SendMessageToTargetWindow(std::uintptr_t wParam, WPQuery& query);

  private:
    bool RunInstall(const HookServiceStart& start, std::uint32_t& errorCode);
    void LogTarget(WindowHandle target);

    HookLibrary& library_;
    NamedObjects& objects_;
    DesktopWindows& windows_;
    QueryRoad& road_;
    std::u16string libraryPath_;
    Log& log_;
    std::unique_ptr<NamedEvent> serviceEvent_;
    bool installed_ = false;
    std::uint32_t lastPid_ = 0;  // of the last target logged
};

}  // namespace vbr
