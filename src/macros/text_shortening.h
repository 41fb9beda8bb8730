// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace vbr {

// No limit on the length of a title.
inline constexpr int kNoLimit = -1;

// Limits are in UTF-16 units; "…" comes on top of them. A surrogate pair is never halved.

// A title on one line: trimmed, cut at the first line end or tab, and at `limit`, where "…" then
// follows.
std::u16string ShortenTitle(std::u16string_view text, int limit);

// What stands for line ends within a text: a blank, or "¶" and for each tab two blanks.
enum class LineEnds { Hidden, Shown };

// A text on one line that shows its start and its end, "…" between them, cut between words where
// that is possible. `place`, if not null, is a place in the text and becomes its place in the
// result: that of the "…" for what is cut out.
std::u16string ShortenMiddle(std::u16string_view text, std::size_t limit,
                             LineEnds lineEnds = LineEnds::Hidden, std::size_t* place = nullptr);

// A web address as its host and its last part, "…" between them; any other text by ShortenMiddle.
std::u16string ShortenUrlOrText(std::u16string_view text, std::size_t limit);

}  // namespace vbr
