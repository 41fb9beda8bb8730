// SPDX-License-Identifier: MIT
#pragma once

#include <set>

#include "exchange/session_notices.h"
#include "platform/win32/handle.h"

namespace vbr {

// WM_WTSSESSION_CHANGE for the registered windows. Those still registered at its end are
// unregistered. Belongs to the main thread.
class CWtsNotify : public SessionNotices {
  public:
    CWtsNotify() = default;
    ~CWtsNotify() override;
    CWtsNotify(const CWtsNotify&) = delete;
    CWtsNotify& operator=(const CWtsNotify&) = delete;

    bool Register(WindowHandle window, bool thisSessionOnly) override;
    bool Unregister(WindowHandle window, bool forget) override;
    bool IsRegistered(WindowHandle window) const override { return windows_.contains(window); }

  private:
    template <typename Function>
    Function Find(const char* name);

    std::set<WindowHandle> windows_;
    // Wtsapi32.dll, loaded at the first use.
    UniqueLibrary module_;
};

}  // namespace vbr
