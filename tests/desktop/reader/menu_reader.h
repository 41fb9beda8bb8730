// SPDX-License-Identifier: MIT
#pragma once

// What the reader, which works in the program, and the driver share.
namespace vbr::desktop {

// The library's hook procedure, for WH_CALLWNDPROC.
inline constexpr char kReaderProc[] = "ReadMenuHook";
// Sent to a menu's window: its items, those of its popups after each, go into the mapping.
inline constexpr wchar_t kReadMenuMessage[] = L"vbr-test-read-menu";
inline constexpr wchar_t kReaderMapping[] = L"Local\\vbr-test-menu";
inline constexpr unsigned kReaderMappingBytes = 4 << 20;

// The text holds one item a line: seven numbers and the label, tabs between them. The numbers:
// depth, state, whether the data begins as screen readers expect it, and its rectangle on
// the screen.
}  // namespace vbr::desktop
