// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vbr {

// Which numbers the names of a folder have. A name is stem, number from 1, extension, in any letter
// case; others don't matter.
class FolderNames {
  public:
    void Take(std::u16string_view name);
    void Release(std::u16string_view name);
    // The name with the lowest free number, which is taken from then on.
    std::u16string TakeFree(std::u16string_view stem, std::u16string_view extension);

  private:
    struct Kind {
        std::u16string Stem;
        std::u16string Extension;
        std::vector<bool> Taken;     // by number
        std::size_t LowestFree = 1;  // none below it is free
    };

    Kind& KindOf(std::u16string_view stem, std::u16string_view extension);

    std::vector<Kind> kinds_;  // few
};

// Whether the name is the stem, a number as FolderNames gives it, and the extension.
bool IsNumberedName(std::u16string_view name, std::u16string_view stem,
                    std::u16string_view extension);

}  // namespace vbr
