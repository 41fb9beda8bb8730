// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "platform/ansi_text.h"
#include "platform/clipboard_access.h"

namespace vbr {

// The text of a CF_UNICODETEXT block, up to its terminator if it has one.
std::u16string UnicodeTextOf(const ClipboardBlock& block);

// The open clipboard's text: CF_UNICODETEXT, or else CF_TEXT in the system's ANSI code page. Empty
// when there is none or its owner hangs.
std::u16string ReadAnyText(const ClipboardSession& session, const AnsiText& ansi);

// The clipboard's text, CF_UNICODETEXT. Empty when there is none, its owner hangs, or another
// program keeps the clipboard open.
std::u16string ReadUnicodeText(ClipboardAccess& clipboard);

}  // namespace vbr
