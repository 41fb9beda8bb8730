// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/system_error.h"
#include "platform/window_handle.h"

namespace vbr {

// Starts programs and opens documents and addresses, as the shell does for the user.
class ProgramStarter {
  public:
    virtual ~ProgramStarter() = default;

    // Whether the path names a file, not a folder.
    virtual bool IsFile(std::u16string_view path) const = 0;
    virtual bool IsFolder(std::u16string_view path) const = 0;
    // The file that a program's name stands for, with or without its extension: a registered
    // program, or a file on the search path.
    virtual std::optional<std::u16string> FindProgram(std::u16string_view name) const = 0;
    // The value, or nothing when there is no such variable.
    virtual std::optional<std::u16string> EnvironmentVariable(std::u16string_view name) const = 0;

    // Opens the path; no window of the shell's own tells of a failure.
    virtual std::optional<SystemError> Start(std::u16string_view path,
                                             std::u16string_view parameters) = 0;
    // How the system says that there is no such file.
    virtual SystemError FileNotFound() const = 0;
    // Beeps and shows a message in front of all windows, until the user closes it.
    virtual void TellFailure(WindowHandle owner, std::u16string_view text,
                             std::u16string_view title) = 0;
};

}  // namespace vbr
