// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace vbr {

// What happened to an item that may have files, by its key.
struct FileChange {
    enum class Kind {
        Removed,     // its files go
        Superseded,  // they go once those of `Successor` are complete
        Protected,   // or not any more, as `On` says
        Cleared,     // all files go that belong to no item; the key is empty
    };

    Kind What = Kind::Removed;
    std::u16string Key;
    std::u16string Successor;
    bool On = false;
};

// In the order in which it happened.
using FileChanges = std::vector<FileChange>;

}  // namespace vbr
