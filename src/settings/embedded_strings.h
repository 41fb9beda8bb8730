// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/strings.h"

namespace vbr {

// A menu text as a plain name: each single "&" and a trailing "…" are gone, "&&" stays.
std::u16string CleanCommandText(std::u16string_view text);

// The program's own English texts, which stand while no language file is in use.
class EmbeddedStrings : public Strings {
  public:
    std::u16string LoadString(int id) const override;
    std::u16string GetCommandText(int menuId, int commandId) const override;
    void TranslateMenu(std::vector<MenuEntry>& entries) const override;
};

}  // namespace vbr
