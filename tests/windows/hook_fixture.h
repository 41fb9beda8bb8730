// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <gtest/gtest.h>
#include <memory>
#include <optional>

#include "exchange/interchange_area.h"
#include "exchange/win32/hook_module.h"
#include "fakes/memory_log.h"
#include "platform/object_names.h"
#include "platform/win32/wide.h"
#include "platform/win32/win_named_objects.h"
#include "windows/program_folder.h"

namespace vbr {

// The hook library with what the program makes for it; a test plays the program.
class HookFixture {
  public:
    HookFixture()
        : area_(objects_.Create(kAreaInterchange, kAreaInterchangeSize)),
          needed_(objects_.Create(kEventDataNeeded, EventReset::Manual, ObjectAccess::Default)) {}
    ~HookFixture() { Uninstall(); }

    static WPInstallParams Params(QueryRouteChoice route) {
        WPInstallParams params;
        params.QueryMessage = QueryMessage();
        params.DataNeededName = kEventDataNeeded.data();
        params.DataCompletedName = kEventDataCompleted.data();
        params.InterchangeAreaName = kAreaInterchange.data();
        params.ErrorCode = 99;
        params.Route = route;
        return params;
    }

    bool Install(QueryRouteChoice route) {
        WPInstallParams params = Params(route);
        return library_.Load() && library_.Install(params).value_or(false);
    }

    bool Uninstall() {
        if (!library_.Uninstall().value_or(false)) {
            return false;
        }
        library_.BroadcastNull();
        library_.Unload();
        return true;
    }

    bool Post(HWND window) const { return PostMessageW(window, QueryMessage(), 0, 0); }
    bool WaitForAnswer(std::uint32_t milliseconds = 20'000) const {
        return needed_->Wait(milliseconds) == WaitResult::Signalled;
    }

    // The answer that lies in the area; the next one may come then.
    std::optional<WPQuery> TakeAnswer() {
        WPQuery query;
        const bool read = InterchangeArea(objects_, kAreaInterchange, log_).ReadQuery(query);
        needed_->Reset();
        return read ? std::optional(query) : std::nullopt;
    }

    std::optional<WPQuery> Ask(HWND window) {
        return Post(window) && WaitForAnswer() ? TakeAnswer() : std::nullopt;
    }

    HookModule& Library() { return library_; }

  private:
    static UINT QueryMessage() { return RegisterWindowMessageW(Wide(kMessageQuery.data())); }

    WinNamedObjects objects_;
    MemoryLog log_;
    std::unique_ptr<SharedBlock> area_;
    std::unique_ptr<NamedEvent> needed_;
    HookModule library_{(ProgramFolder() / "test_build" / "Vellumbridge.dll").u16string()};
};

}  // namespace vbr
