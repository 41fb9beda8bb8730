// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/ansi_text.h"

namespace vbr {

// Latin 1, with a question mark for what it lacks.
class FakeAnsiText : public AnsiText {
  public:
    std::u16string FromAnsi(std::string_view text) const override {
        std::u16string wide;
        for (const char unit : text) {
            wide += static_cast<unsigned char>(unit);
        }
        return wide;
    }
    std::string ToAnsi(std::u16string_view text) const override {
        std::string bytes;
        for (const char16_t unit : text) {
            bytes += unit > 0xFF ? '?' : static_cast<char>(unit);
        }
        return bytes;
    }
};

}  // namespace vbr
