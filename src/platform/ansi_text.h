// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace vbr {

// Text of programs without Unicode.
class AnsiText {
  public:
    virtual ~AnsiText() = default;

    // From the system's ANSI code page; empty when it can't be converted.
    virtual std::u16string FromAnsi(std::string_view text) const = 0;
    // Into the ANSI code page of the calling thread, which has a stand-in for what it lacks.
    virtual std::string ToAnsi(std::u16string_view text) const = 0;
};

}  // namespace vbr
