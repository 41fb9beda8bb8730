// SPDX-License-Identifier: MIT
#pragma once

#include "platform/program_windows.h"

namespace vbr {

// Icons are HICON.
class WinProgramWindows : public ProgramWindows {
  public:
    WindowHandle ParentOf(WindowHandle window) const override;
    std::u16string TitleOf(WindowHandle window) const override;
    std::u16string ProgramOf(WindowHandle window) const override;
    IconHandle IconOf(WindowHandle window) const override;
    IconHandle IconOfFile(std::u16string_view path) const override;
};

}  // namespace vbr
