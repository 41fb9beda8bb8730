// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/system_error.h"
#include "platform/window_handle.h"

namespace vbr {

// How an opened program's window comes up.
enum class ShowState : std::int32_t { Maximized = 3, Normal = 5 };

// A program that the shell is to start.
struct ShellStart {
    std::u16string Path;
    std::u16string Arguments;
    std::u16string Folder;  // that it starts in; empty for the caller's
    ShowState Show = ShowState::Normal;
    bool Elevated = false;  // the user is asked for an administrator's rights
};

// Opens documents and addresses with the program that the user has chosen for them, and starts
// programs, as the shell does.
class ShellOpener {
  public:
    virtual ~ShellOpener() = default;

    virtual std::optional<SystemError> Open(WindowHandle owner, std::u16string_view target,
                                            ShowState show) = 0;
    // The mouse shows meanwhile that a program starts.
    virtual std::optional<SystemError> Start(WindowHandle owner, const ShellStart& start) = 0;
};

}  // namespace vbr
