// SPDX-License-Identifier: MIT
#pragma once

#include "platform/desktop_windows.h"

namespace vbr {

class WinDesktopWindows : public DesktopWindows {
  public:
    WindowThread ThreadOf(WindowHandle window) const override;
    std::u16string ProgramPath(std::uint32_t process) const override;
    std::u16string ClassName(WindowHandle window) const override;
    LayoutHandle KeyboardLayout(std::uint32_t thread) const override;
    void SendCopy(WindowHandle window) override;
};

}  // namespace vbr
