// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

namespace vbr {

// Kinds of history items that the menu tells apart.
enum class MenuHistoryKind { Text, FormattedText, Bitmap, Other };

// What the phrase menu asks of the clipboard history. Index 0 is the newest item.
class MenuHistory {
  public:
    virtual ~MenuHistory() = default;

    virtual std::size_t GetCount() const = 0;
    virtual MenuHistoryKind KindOf(std::size_t index) const = 0;
    // The first line, shortened; a name of the kind for an item without text.
    virtual std::u16string MenuCaptionText(std::size_t index) const = 0;
    // The whole text; empty for an item that has none.
    virtual std::u16string FullText(std::size_t index) const = 0;
    virtual std::u16string SourceUrl(std::size_t index) const = 0;

    // What the menu made of the item before, kept with it; empty until it is made, and again when
    // the item or the language has changed.
    virtual std::u16string& MenuCaption(std::size_t index) = 0;
    virtual std::u16string& MenuTip(std::size_t index) = 0;

    // While it is locked no item is added, so that indices keep their items.
    virtual void SetLocked(bool locked) = 0;
};

}  // namespace vbr
