// SPDX-License-Identifier: MIT
#include "platform/win32/win_keyboard_layouts.h"

#include "platform/win32/windows.h"

#include <algorithm>

namespace vbr {

std::vector<Lcid> WinKeyboardLayouts::InstalledLanguages() const {
    std::vector<HKL> layouts(static_cast<std::size_t>(GetKeyboardLayoutList(0, nullptr)));
    const int count = GetKeyboardLayoutList(static_cast<int>(layouts.size()), layouts.data());
    layouts.resize(static_cast<std::size_t>(count));
    std::vector<Lcid> languages(layouts.size());
    std::transform(layouts.begin(), layouts.end(), languages.begin(), [](HKL layout) {
        return Lcid{LOWORD(reinterpret_cast<std::uintptr_t>(layout))};
    });
    return languages;
}

}  // namespace vbr
