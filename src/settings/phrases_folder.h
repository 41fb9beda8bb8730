// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace vbr {

// The folder of the phrases while the setting is empty. `programFolder` ends in a backslash.
std::u16string DefaultPhrasesFolder(std::u16string_view programFolder);

// A folder as the settings keep it: empty for the default one, relative to the program folder when
// it lies below that, without a backslash at the end.
std::u16string StoredPhrasesFolder(std::u16string_view folder, std::u16string_view programFolder);

}  // namespace vbr
