// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "exchange/query.h"

namespace vbr {

// The most that the reader of a query document looks at, in bytes with the zero.
inline constexpr std::size_t kQueryDocumentMax = 409'600;

// What the hook library tells of its target. The texts are the caller's.
struct QueryFacts {
    std::u16string_view AppPath;
    std::u16string_view WindowClassName;
    WindowHandle Target = 0;
    GuiThreadWindows GuiThreadInfo;
    LayoutHandle Hkl = 0;
    std::int32_t PointX = -1;
    std::int32_t PointY = -1;
    std::u16string_view SelText;
    std::int32_t StateSelText = kSelTextNone;
};

// Writes the WPQuery document, UTF-8 with a zero at its end, to `buffer`. A selection that does not
// fit is not cut but told as kSelTextFailed. False when the rest does not fit either. Needs no
// runtime and allocates nothing, since it runs in other programs.
bool WriteQueryDocument(const QueryFacts& facts, char* buffer, std::size_t size);

}  // namespace vbr
