// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/ansi_text.h"
#include "platform/clipboard_access.h"

namespace vbr {

// The clipboard's text, CF_UNICODETEXT. Empty when there is none, its owner hangs, or another
// program holds the clipboard at this moment.
std::u16string ReadUnicodeText(ClipboardAccess& clipboard);

// The same, or else CF_TEXT in the system's ANSI code page.
std::u16string ReadAnyText(ClipboardAccess& clipboard, const AnsiText& ansi);

}  // namespace vbr
