// SPDX-License-Identifier: MIT
#pragma once

#include "platform/shell_opener.h"

namespace vbr {

class WinShellOpener : public ShellOpener {
  public:
    std::optional<SystemError> Open(WindowHandle owner, std::u16string_view target,
                                    ShowState show) override;
    std::optional<SystemError> Start(WindowHandle owner, const ShellStart& start) override;
};

}  // namespace vbr
