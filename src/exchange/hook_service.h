// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "exchange/hook_library.h"
#include "exchange/query.h"
#include "exchange/query_route.h"
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
    QueryRouteChoice Route = QueryRouteChoice::OfSystem;
    bool TargetsAnswer = false;  // on that route
};

// The text for a code of WPInstallParams, with a line that names the code.
std::u16string DescribeHookError(std::uint32_t code);

// Holds the hook library, asks it for the target, and starts queries. Belongs to the main thread.
class CVBRDLLService {
  public:
    struct Collaborators {
        HookLibrary& Library;
        std::u16string LibraryPath;
        NamedObjects& Objects;
        DesktopWindows& Windows;
        QueryRoute& Route;
        vbr::Log& Log;
    };

    explicit CVBRDLLService(Collaborators with) : with_(std::move(with)) {}

    // Loads and installs the library. On a failure the code says why, as the library or this
    // service numbers it.
    std::optional<std::uint32_t> InstallDLLService(const HookServiceStart& start);

    // False when nothing is installed or the library refuses; it then stays loaded.
    bool UninstallDLLService();

    bool IsInstalled() const { return installed_; }
    const std::u16string& LibraryPath() const { return with_.LibraryPath; }

    WindowHandle GetTargetWindow() { return installed_ ? with_.Library.GetTargetWindow() : 0; }
    // The window to give the focus back to after one of this program's had it; 0 for none.
    WindowHandle GetTargetWindowOther() {
        return installed_ ? with_.Library.GetTargetWindowOther() : 0;
    }

    // Starts a query about the target in front; `wParam` tells the hook library its cause. Local
    // means that `query` is filled.
    QueryStart SendMessageToTargetWindow(std::uintptr_t wParam, WPQuery& query);

  private:
    std::optional<std::uint32_t> RunInstall(const HookServiceStart& start);
    void LogTarget(WindowHandle target);

    Collaborators with_;
    std::unique_ptr<NamedEvent> serviceEvent_;
    bool installed_ = false;
    std::uint32_t lastPid_ = 0;  // of the last target logged
};

}  // namespace vbr
