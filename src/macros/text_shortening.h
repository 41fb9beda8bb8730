// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace vbr {

// No limit on the length of a title.
inline constexpr int kNoLimit = -1;

// A title on one line: trimmed, cut at the first line end or tab, and at `limit` UTF-16 units,
// where "…" then follows.
std::u16string ShortenTitle(std::u16string_view text, int limit);

}  // namespace vbr
