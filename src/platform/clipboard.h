// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace vbr {

// The clipboard of the desktop.
class Clipboard {
  public:
    virtual ~Clipboard() = default;

    // False when another program holds the clipboard open.
    virtual bool Empty() = 0;

    // CF_UNICODETEXT, or CF_TEXT in the ANSI code page when there is none; empty without text.
    virtual std::u16string Text() const = 0;
    // CF_UNICODETEXT alone.
    virtual std::u16string UnicodeText() const = 0;
};

}  // namespace vbr
