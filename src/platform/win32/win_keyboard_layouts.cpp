// SPDX-License-Identifier: MIT
#include "platform/win32/win_keyboard_layouts.h"

#include "platform/win32/windows.h"

#include <algorithm>

#include "platform/win32/handle.h"
#include "platform/win32/wide.h"

namespace vbr {
namespace {

constexpr DWORD kToggleUnits = 10;

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

LayoutToggleSetting WinKeyboardLayouts::ToggleSetting() const {
    HKEY opened = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, L"Keyboard Layout\\Toggle", 0, KEY_QUERY_VALUE, &opened) !=
        ERROR_SUCCESS) {
        return {};
    }
    const UniqueRegKey key(opened);
    wchar_t text[kToggleUnits + 1]{};  // its end stays zero: the value may come without one
    DWORD bytes = kToggleUnits * sizeof(wchar_t);
    switch (RegQueryValueExW(opened, L"Hotkey", nullptr, nullptr, reinterpret_cast<BYTE*>(text),
                             &bytes)) {
        case ERROR_SUCCESS:
            return {true, FromWide(text)};
        case ERROR_FILE_NOT_FOUND:
            return {true, std::nullopt};
        default:
            return {};
    }
}

}  // namespace vbr
