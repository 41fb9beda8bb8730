// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

// Where the makers can be reached.
namespace vbr {

inline constexpr std::u16string_view kWebServer = u"http://www.vellumbridge.example";
inline constexpr std::u16string_view kFacebookPage =
    u"https://www.facebook.com/groups/vellumbridge";
inline constexpr std::u16string_view kVkPage = u"https://vk.com/vellumbridge";
inline constexpr std::u16string_view kMailAddress = u"support@vellumbridge.example";

}  // namespace vbr
