// SPDX-License-Identifier: MIT
#pragma once

#include "platform/shell_opener.h"

namespace vbr {

class WinShellOpener : public ShellOpener {
  public:
    std::intptr_t Open(WindowHandle owner, std::u16string_view target, ShowState show) override;
};

}  // namespace vbr
