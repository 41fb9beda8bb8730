// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "history/history_item.h"
#include "platform/file_store.h"

// How the files of the history are named. Other programs read them.
namespace vbr {

inline constexpr std::u16string_view kInfoStem = u"vellumbridge_cb";
inline constexpr std::u16string_view kInfoExtension = u".info";
inline constexpr std::u16string_view kDataStem = u"clipboard_history";
// Of text in UTF-16, whose extension is that of ANSI text.
inline constexpr std::u16string_view kUnicodeStem = u"Unicode_clipboard_history";

// With its point; empty for a format that is not stored.
std::u16string_view ExtensionOf(ItemFormat format);
ItemFormat FormatOfFile(std::u16string_view name);

// Whether only this program gives a file such a name, and none that tells of an item.
bool IsNameOfOurs(std::u16string_view name);
bool IsInfoName(const FolderEntry& entry);
// A description may name what it likes: a file elsewhere, or another description.
bool IsDataName(std::u16string_view name);

}  // namespace vbr
