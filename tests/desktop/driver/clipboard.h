// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>

namespace vbr::desktop {

// The clipboard's formats, each by its number or registered name, with its bytes; of a bitmap its
// pixels.
using ClipboardContent = std::map<std::wstring, std::string>;

// Puts text, RTF, HTML, a bitmap and a private format there, and reads back what there is then.
ClipboardContent FillClipboard();

// Waits while another program has the clipboard open. Opens it only after a change: a program that
// wants to write meanwhile would find it in use and not try again. Empty when it cannot be opened.
ClipboardContent ReadClipboard();

}  // namespace vbr::desktop
