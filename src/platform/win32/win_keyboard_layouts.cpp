// SPDX-License-Identifier: MIT
#include "platform/win32/win_keyboard_layouts.h"

#include "platform/win32/windows.h"

#include <algorithm>

namespace vbr {
namespace {

Lcid LanguageOf(HKL layout) {
    return LOWORD(reinterpret_cast<std::uintptr_t>(layout));
}

}  // namespace

std::vector<Lcid> WinKeyboardLayouts::InstalledLanguages() const {
    std::vector<HKL> layouts(static_cast<std::size_t>(GetKeyboardLayoutList(0, nullptr)));
    const int count = GetKeyboardLayoutList(static_cast<int>(layouts.size()), layouts.data());
    layouts.resize(static_cast<std::size_t>(count));
    std::vector<Lcid> languages(layouts.size());
    std::transform(layouts.begin(), layouts.end(), languages.begin(), LanguageOf);
    return languages;
}

Lcid WinKeyboardLayouts::DefaultInputLanguage() const {
    HKL layout = nullptr;
    SystemParametersInfoW(SPI_GETDEFAULTINPUTLANG, 0, &layout, 0);
    // Some systems say that they told it and did not.
    return LanguageOf(layout ? layout : GetKeyboardLayout(0));
}

}  // namespace vbr
