// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace vbr {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

// The program's text as Windows takes it, and back. Both are UTF-16; only the type differs.
inline const wchar_t* Wide(const char16_t* text) {
    return reinterpret_cast<const wchar_t*>(text);
}
inline const wchar_t* Wide(const std::u16string& text) {
    return Wide(text.c_str());
}
inline wchar_t* Wide(char16_t* buffer) {
    return reinterpret_cast<wchar_t*>(buffer);
}

inline const char16_t* FromWide(const wchar_t* text) {
    return reinterpret_cast<const char16_t*>(text);
}
inline std::u16string FromWide(const wchar_t* text, std::size_t length) {
    return std::u16string(FromWide(text), length);
}

}  // namespace vbr
