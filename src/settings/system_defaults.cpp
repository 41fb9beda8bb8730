// SPDX-License-Identifier: MIT
#include "settings/system_defaults.h"

#include "settings/default_language.h"

namespace vbr {

SystemDefaults ReadSystemDefaults(const KeyboardLayouts& layouts, const Locale& locale,
                                  const ProfileStore& profile,
                                  const std::filesystem::path& programFolder,
                                  const FontBytes& menuFont,
                                  std::function<std::u16string()> dateAndTime) {
    const std::u16string language = locale.Iso639Name(layouts.DefaultInputLanguage());
    return {layouts.InstalledLanguages().size() > 1,
            ChooseDefaultLanguage(profile, programFolder, language), menuFont,
            std::move(dateAndTime)};
}

}  // namespace vbr
