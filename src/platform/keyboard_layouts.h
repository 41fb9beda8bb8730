// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "platform/locale.h"

namespace vbr {

// The keyboard layouts installed for the user.
class KeyboardLayouts {
  public:
    virtual ~KeyboardLayouts() = default;

    // The language (low word) of each installed layout, in the system's order.
    virtual std::vector<Lcid> InstalledLanguages() const = 0;
    // The language of the layout that a new program starts with.
    virtual Lcid DefaultInputLanguage() const = 0;
};

}  // namespace vbr
