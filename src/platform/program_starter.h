// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
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
    // Environment variables in the path count.
    virtual std::optional<SystemError> Start(std::u16string_view path,
                                             std::u16string_view parameters) = 0;
    // Beeps and shows a message over the window, until the user closes it.
    virtual void TellFailure(WindowHandle owner, std::u16string_view text,
                             std::u16string_view title) = 0;
};

}  // namespace vbr
