// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

#include "exchange/install_params.h"
#include "platform/window_handle.h"

namespace vbr {

// The hook library as a loaded module. Its functions are looked up by name at each use.
class HookLibrary {
  public:
    virtual ~HookLibrary() = default;

    virtual bool Load() = 0;
    virtual void Unload() = 0;

    // The result of WP_Install or WP_Uninstall; nothing when the library lacks the function.
    virtual std::optional<bool> Install(WPInstallParams& params) = 0;
    virtual std::optional<bool> Uninstall() = 0;

    // The window that a query is about; 0 when there is none.
    virtual WindowHandle GetTargetWindow() = 0;
    // The top window that was in front last and isn't this program's, to give the focus back to;
    // 0 when there is none any more.
    virtual WindowHandle GetTargetWindowOther() = 0;

    // Wakes all windows, so that processes let go of a library that isn't hooked in any more.
    virtual void BroadcastNull() = 0;
};

}  // namespace vbr
