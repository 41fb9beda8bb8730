// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "exchange/hook_library.h"
#include "fakes/journal.h"

namespace vbr {

// A hook library that answers as the test says.
class FakeHookLibrary : public HookLibrary {
  public:
    explicit FakeHookLibrary(Journal& calls) : calls_(calls) {}

    bool Loads = true;
    std::optional<bool> InstallResult = true;
    std::uint32_t ErrorCode = 0;
    std::optional<bool> UninstallResult = true;
    WindowHandle Target = 0;
    std::optional<std::u16string> LogPath;  // as it was installed with

    bool Load() override { return Note("load", Loads); }
    void Unload() override { Note("unload", true); }
    std::optional<bool> Install(WPInstallParams& params) override {
        LogPath = params.LogPath ? std::optional<std::u16string>(params.LogPath) : std::nullopt;
        params.ErrorCode = ErrorCode;
        return Note("install", InstallResult);
    }
    std::optional<bool> Uninstall() override { return Note("uninstall", UninstallResult); }
    WindowHandle GetTargetWindow() override { return Target; }
    WindowHandle GetTargetWindowOther() override { return Target; }
    void BroadcastNull() override { Note("broadcast", true); }

  private:
    template <typename Result>
    Result Note(const char* call, Result result) {
        calls_.push_back(call);
        return result;
    }

    Journal& calls_;
};

}  // namespace vbr
