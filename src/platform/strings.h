// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "platform/menu_data.h"

namespace vbr {

// The texts that the user sees, in the chosen language. LoadString is callable from any thread.
class Strings {
  public:
    virtual ~Strings() = default;

    // The string with that id; empty when there is none.
    virtual std::u16string LoadString(int id) const = 0;

    // Text of a command of a menu template, without access key and trailing "…"; empty when the
    // template does not hold it.
    virtual std::u16string GetCommandText(int menuId, int commandId) const = 0;

    // Puts the texts of all entries, sub-menus included, into the language.
    virtual void TranslateMenu(std::vector<MenuEntry>& entries) const = 0;
};

}  // namespace vbr
