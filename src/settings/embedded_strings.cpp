// SPDX-License-Identifier: MIT
#include "settings/embedded_strings.h"

#include <cstddef>

#include "base/text.h"
#include "resources/menu_templates.h"
#include "resources/string_table.h"

namespace vbr {

std::u16string CleanCommandText(std::u16string_view text) {
    std::u16string clean;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != u'&') {
            clean += text[i];
        } else if (i + 1 < text.size() && text[i + 1] == u'&') {
            clean += u"&&";
            ++i;
        }
    }
    return std::u16string(TrimRight(clean, u"…"));
}

std::u16string EmbeddedStrings::LoadString(int id) const {
    return std::u16string(EmbeddedString(id));
}

std::u16string EmbeddedStrings::GetCommandText(int menuId, int commandId) const {
    const MenuTemplate* menu = MenuTemplateById(menuId);
    const MenuEntry* command = menu ? FindCommand(menu->Entries, commandId) : nullptr;
    return command ? CleanCommandText(command->Text) : std::u16string();
}

void EmbeddedStrings::TranslateMenu(std::vector<MenuEntry>&) const {
    // Without a language file the texts stand as they are.
}

}  // namespace vbr
