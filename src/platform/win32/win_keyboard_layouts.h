// SPDX-License-Identifier: MIT
#pragma once

#include "platform/keyboard_layouts.h"

namespace vbr {

class WinKeyboardLayouts : public KeyboardLayouts {
  public:
    std::vector<Lcid> InstalledLanguages() const override;
    Lcid DefaultInputLanguage() const override;
    LayoutToggleSetting ToggleSetting() const override;
};

}  // namespace vbr
