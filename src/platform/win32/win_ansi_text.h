// SPDX-License-Identifier: MIT
#pragma once

#include "platform/ansi_text.h"

namespace vbr {

class WinAnsiText : public AnsiText {
  public:
    std::u16string FromAnsi(std::string_view text) const override;
    std::string ToAnsi(std::u16string_view text) const override;
};

}  // namespace vbr
