// SPDX-License-Identifier: MIT
#pragma once

// The resource scripts include this file too: macros for both, C++ below.
#define VBR_VERSION_MAJOR 1
#define VBR_VERSION_MINOR 0
#define VBR_VERSION_PATCH 0
#define VBR_VERSION_BUILD 1

#define VBR_PRODUCT_NAME "Vellumbridge"
#define VBR_COMPANY_NAME "The Vellumbridge developers"
#define VBR_COPYRIGHT "Copyright (c) 2026 The Vellumbridge developers"

#define VBR_TEXT_OF(number) #number
#define VBR_TEXT(number) VBR_TEXT_OF(number)
#define VBR_VERSION_DOTTED \
    VBR_TEXT(VBR_VERSION_MAJOR) "." VBR_TEXT(VBR_VERSION_MINOR) "." VBR_TEXT(VBR_VERSION_PATCH)
#define VBR_VERSION_TEXT VBR_VERSION_DOTTED " build " VBR_TEXT(VBR_VERSION_BUILD)
#define VBR_FILE_VERSION_TEXT VBR_VERSION_DOTTED "." VBR_TEXT(VBR_VERSION_BUILD)

#ifndef RC_INVOKED

#include <array>
#include <string>

namespace vbr {

inline constexpr char16_t kProductName[] = u"" VBR_PRODUCT_NAME;

// Year, month and day of the release.
inline constexpr std::array<int, 3> kReleaseDate{2026, 11, 24};

// Major, minor, patch and build number.
inline constexpr std::array<int, 4> kVersionNumbers{VBR_VERSION_MAJOR, VBR_VERSION_MINOR,
                                                    VBR_VERSION_PATCH, VBR_VERSION_BUILD};

// "1.0.0 build 1".
inline std::u16string VersionText() {
    return u"" VBR_VERSION_TEXT;
}

// "Vellumbridge 1.0.0 build 1".
inline std::u16string NameAndVersion() {
    return u"" VBR_PRODUCT_NAME " " VBR_VERSION_TEXT;
}

}  // namespace vbr

#endif  // RC_INVOKED
