// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <memory>
#include <set>
#include <type_traits>

#include "exchange/session_notices.h"

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
    struct LibraryFreer {
        using pointer = HMODULE;
        void operator()(HMODULE module) const { FreeLibrary(module); }
    };

    template <typename Function>
    Function Find(const char* name);

    std::set<WindowHandle> windows_;
    // Wtsapi32.dll, loaded at the first use.
    std::unique_ptr<std::remove_pointer_t<HMODULE>, LibraryFreer> module_;
};

}  // namespace vbr
