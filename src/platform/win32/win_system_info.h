// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/system_info.h"

namespace vbr {

class WinSystemInfo : public SystemInfo {
  public:
    // `programFolder` ends in a backslash.
    explicit WinSystemInfo(std::u16string programFolder)
        : programFolder_(std::move(programFolder)) {}

    std::u16string UserName() const override;
    std::optional<Point> CursorPosition() const override;
    std::optional<std::u16string> SystemDirectory() const override;
    std::u16string SystemDescription() const override;
    bool Is64BitWindows() const override;
    std::u16string FileVersion(ProgramFile file) const override;

  private:
    std::u16string programFolder_;
};

}  // namespace vbr
