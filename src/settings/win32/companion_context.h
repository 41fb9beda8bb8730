// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/win_clock.h"
#include "platform/win32/win_file_access.h"
#include "platform/win32/win_keyboard_layouts.h"
#include "platform/win32/win_locale.h"
#include "platform/win32/win_named_objects.h"
#include "platform/win32/win_profile_store.h"
#include "settings/embedded_strings.h"
#include "settings/file_locations.h"
#include "settings/settings.h"

namespace vbr {

// What every program of the folder begins with: where its files lie, the settings, the texts.
class CompanionContext {
  public:
    CompanionContext();

    const FileLocations& Locations() const { return locations_; }
    const WinFileAccess& Access() const { return access_; }
    CVBRSettings& Settings() { return settings_; }
    const Strings& Texts() const { return strings_; }
    WinNamedObjects& Objects() { return objects_; }
    const WinClock& Clock() const { return clock_; }

  private:
    WinClock clock_;
    WinLocale locale_;
    WinKeyboardLayouts layouts_;
    WinFileAccess access_;
    WinProfileStore profile_;
    WinNamedObjects objects_;
    FileLocations locations_;
    CVBRSettings settings_;
    EmbeddedStrings strings_;
};

}  // namespace vbr
