// SPDX-License-Identifier: MIT
#pragma once

#include "platform/desktop_windows.h"

namespace vbr {

class WinDesktopWindows : public DesktopWindows {
  public:
    bool IsWindow(WindowHandle window) const override;
    WindowThread ThreadOf(WindowHandle window) const override;
    std::u16string ProgramPath(std::uint32_t process) const override;
    std::optional<std::uint32_t> BinaryType(const std::u16string& path) const override;
    bool HasOwnBitness(std::uint32_t process) const override;
    std::u16string ClassName(WindowHandle window) const override;
    WindowHandle RootOf(WindowHandle window) const override;
    std::optional<bool> HasSelection(WindowHandle edit) const override;
    LayoutHandle KeyboardLayout(std::uint32_t thread) const override;
    GuiThreadWindows OwnGuiThread() const override;
    bool Post(WindowHandle window, std::uint32_t message, std::uintptr_t wParam) override;
    void SendCopy(WindowHandle window, std::uint32_t patienceMs) override;
};

}  // namespace vbr
