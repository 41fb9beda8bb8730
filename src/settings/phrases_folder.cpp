// SPDX-License-Identifier: MIT
#include "settings/phrases_folder.h"

#include "base/text.h"

namespace vbr {
namespace {

constexpr std::u16string_view kDefaultName = u"UserPhrases";

std::u16string_view WithoutBackslash(std::u16string_view folder) {
    if (folder.ends_with(u'\\')) {
        folder.remove_suffix(1);
    }
    return folder;
}

}  // namespace

std::u16string DefaultPhrasesFolder(std::u16string_view programFolder) {
    return Concat(programFolder, kDefaultName, u"\\");
}

std::u16string StoredPhrasesFolder(std::u16string_view folder, std::u16string_view programFolder) {
    std::u16string_view stored = folder;
    // The program folder itself keeps its path: the empty text would mean the default.
    if (StartsWithNoCase(folder, programFolder) && folder.size() > programFolder.size()) {
        stored.remove_prefix(programFolder.size());
    }
    stored = WithoutBackslash(stored);
    return std::u16string(EqualsNoCase(stored, kDefaultName) ? std::u16string_view() : stored);
}

}  // namespace vbr
