// SPDX-License-Identifier: MIT
#pragma once

#include "platform/keyboard_layouts.h"
#include "settings/settings.h"

namespace vbr {

// Collects the defaults that depend on the system. `dateAndTime` is asked at each save.
SystemDefaults ReadSystemDefaults(const KeyboardLayouts& layouts, const Locale& locale,
                                  const ProfileStore& profile,
                                  const std::filesystem::path& programFolder,
                                  const FontBytes& menuFont,
                                  std::function<std::u16string()> dateAndTime);

}  // namespace vbr
