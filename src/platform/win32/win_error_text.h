// SPDX-License-Identifier: MIT
#pragma once

#include "platform/system_error_text.h"

namespace vbr {

class WinErrorText : public SystemErrorText {
  public:
    std::uint32_t LastError() const override;
    std::u16string TextOf(std::uint32_t code) const override;
};

}  // namespace vbr
