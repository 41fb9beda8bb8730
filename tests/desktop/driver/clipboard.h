// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <string>

namespace vbr::desktop {

// The clipboard's formats that are memory, each by its number or registered name, with its bytes.
using ClipboardContent = std::map<std::wstring, std::string>;

// Waits while another program has the clipboard open. Opens it only after a change: a program that
// wants to write meanwhile would find it in use and not try again. Empty when it cannot be opened.
// Marks of content that is there for an instant or again are left out.
ClipboardContent ReadClipboard();

// Whether the content has all of these marks.
bool IsClipboardMarked();

}  // namespace vbr::desktop
