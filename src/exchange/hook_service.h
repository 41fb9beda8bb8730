// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "exchange/hook_library.h"
#include "exchange/query.h"
#include "exchange/selected_text.h"
#include "platform/desktop_windows.h"
#include "platform/log.h"
#include "platform/named_objects.h"

namespace vbr {

enum class QueryStart {
    Posted = 0,
    Failed = 1,
    Local = 2,  // the query was filled here
};

// What the hook library is installed with.
struct HookServiceStart {
    WindowHandle TrayWindow = 0;
    std::uint32_t QueryMessage = 0;
    std::u16string LogPath;  // empty while the log is off
    std::uint16_t LogAtom = 0;
    bool AllowWaitAnswer = false;
};

// The text for a code of WPInstallParams, with a line that names the code.
std::u16string DescribeHookError(std::uint32_t code);

// Holds the hook library, asks it for the target, and starts queries. Belongs to the main thread.
class CVBRDLLService {
  public:
    CVBRDLLService(HookLibrary& library, NamedObjects& objects, DesktopWindows& windows,
                   SelectedTextReader& selection, std::u16string libraryPath, Log& log)
        : library_(library),
          objects_(objects),
          windows_(windows),
          selection_(selection),
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

    // Starts a query about the target in front. Local means that `query` is filled.
    QueryStart SendMessageToTargetWindow(WPQuery& query);

  private:
    bool RunInstall(const HookServiceStart& start, std::uint32_t& errorCode);

    HookLibrary& library_;
    NamedObjects& objects_;
    DesktopWindows& windows_;
    SelectedTextReader& selection_;
    std::u16string libraryPath_;
    Log& log_;
    std::unique_ptr<NamedEvent> serviceEvent_;
    bool installed_ = false;
};

}  // namespace vbr
