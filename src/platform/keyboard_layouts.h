// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/locale.h"

namespace vbr {

// What the user's settings say about the shortcut that switches layouts.
struct LayoutToggleSetting {
    bool Readable = false;
    std::optional<std::u16string> Hotkey;  // nothing when the settings leave it open
};

// The keyboard layouts installed for the user.
class KeyboardLayouts {
  public:
    virtual ~KeyboardLayouts() = default;

    // The language (low word) of each installed layout, in the system's order.
    virtual std::vector<Lcid> InstalledLanguages() const = 0;
    // The language of the layout that a new program starts with.
    virtual Lcid DefaultInputLanguage() const = 0;
    virtual LayoutToggleSetting ToggleSetting() const = 0;
};

}  // namespace vbr
