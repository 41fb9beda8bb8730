// SPDX-License-Identifier: MIT
#pragma once

#include "platform/clipboard.h"

namespace vbr {

class WinClipboard : public Clipboard {
  public:
    bool Empty() override;
    std::u16string Text() const override;
    std::u16string UnicodeText() const override;
};

}  // namespace vbr
