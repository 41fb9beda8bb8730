// SPDX-License-Identifier: MIT
#include "settings/win32/companion_context.h"

#include "platform/date_forms.h"
#include "platform/win32/module_path.h"
#include "platform/win32/win_menu_font.h"
#include "settings/system_defaults.h"

namespace vbr {

CompanionContext::CompanionContext()
    : locations_(ChooseFileLocations(ModulePath(), access_)),
      settings_(profile_, SettingsFilesOf(locations_),
                ReadSystemDefaults(layouts_, locale_, profile_, locations_.ProgramFolder,
                                   SystemMenuFont(), [this] {
                                       return FormatDateTime(DateTimeMode::DateTime, locale_,
                                                             locale_.UserDefault(),
                                                             clock_.LocalTime());
                                   })) {
    settings_.Load();
}

}  // namespace vbr
