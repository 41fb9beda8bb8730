// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "exchange/hook_library.h"
#include "platform/win32/handle.h"

namespace vbr {

// Vellumbridge.dll, loaded from the program folder.
class HookModule : public HookLibrary {
  public:
    explicit HookModule(std::u16string path) : path_(std::move(path)) {}

    bool Load() override;
    void Unload() override { module_.reset(); }
    std::optional<bool> Install(WPInstallParams& params) override;
    std::optional<bool> Uninstall() override;
    WindowHandle GetTargetWindow() override { return AskForWindow("WP_GetTargetWindow"); }
    WindowHandle GetTargetWindowOther() override { return AskForWindow("WP_GetTargetWindowOther"); }
    void BroadcastNull() override;

  private:
    template <typename Function>
    Function Find(const char* name) const;
    WindowHandle AskForWindow(const char* name) const;

    std::u16string path_;
    UniqueLibrary module_;
};

}  // namespace vbr
