// SPDX-License-Identifier: MIT
#pragma once

#include "platform/program_starter.h"

namespace vbr {

class WinProgramStarter : public ProgramStarter {
  public:
    bool IsFile(std::u16string_view path) const override;
    bool IsFolder(std::u16string_view path) const override;
    std::optional<std::u16string> FindProgram(std::u16string_view name) const override;
    std::optional<std::u16string> EnvironmentVariable(std::u16string_view name) const override;
    std::optional<SystemError> Start(std::u16string_view path,
                                     std::u16string_view parameters) override;
    SystemError FileNotFound() const override;
    void TellFailure(WindowHandle owner, std::u16string_view text,
                     std::u16string_view title) override;
};

}  // namespace vbr
