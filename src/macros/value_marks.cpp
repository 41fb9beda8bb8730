// SPDX-License-Identifier: MIT
#include "macros/value_marks.h"

#include "base/text.h"

namespace vbr {

std::u16string WithoutMarks(std::u16string_view text) {
    std::u16string out(text);
    std::erase_if(out, [](char16_t c) { return c == kValueOpen || c == kValueClose; });
    return out;
}

std::u16string MarkedValue(std::u16string_view value) {
    std::u16string out(1, kValueOpen);
    out += WithoutMarks(value);
    out += kValueClose;
    return out;
}

}  // namespace vbr
