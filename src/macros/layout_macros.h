// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/keyboard_layouts.h"
#include "platform/locale.h"

namespace vbr {

// The layout macros of the layouts installed at this moment, "%ACTIVATE_KL_EN%" and the like, each
// with its language. Of two layouts of one language the last in the system's list wins.
std::map<std::u16string, Lcid> InstalledLayoutMacros(const KeyboardLayouts& layouts,
                                                     const Locale& locale);

// Removes all installed layout macros; the language of the last one removed in the order of the
// tokens, or 0. A text that holds no such macro costs no look at the layouts.
Lcid StripLayoutMacros(std::u16string& text, const KeyboardLayouts& layouts, const Locale& locale);

}  // namespace vbr
