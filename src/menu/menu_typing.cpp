// SPDX-License-Identifier: MIT
#include "menu/menu_typing.h"

#include <algorithm>

#include "base/text.h"

namespace vbr {
namespace {

constexpr std::uint32_t kPauseMs = 1000;

// The first item that fits, from the start on and around the menu's end.
template <typename Fits>
std::optional<std::size_t> FindAround(const std::vector<const CMenuItemInfo*>& items,
                                      std::size_t start, Fits&& fits) {
    for (std::size_t i = 0; i < items.size(); ++i) {
        const std::size_t place = (start + i) % items.size();
        if (!items[place]->IsSeparator() && fits(*items[place])) {
            return place;
        }
    }
    return std::nullopt;
}

}  // namespace

std::optional<std::size_t> MenuTyping::OnChar(const std::vector<const CMenuItemInfo*>& items,
                                              std::optional<std::size_t> selected, char16_t typed) {
    const std::uint32_t now = clock_.TickCount();
    if (now - lastTick_ > kPauseMs) {
        letters_.clear();
    }
    lastTick_ = now;
    const std::size_t current = selected.value_or(0);
    const std::size_t next = selected ? *selected + 1 : 0;
    const auto begins = [this](const CMenuItemInfo& info) {
        return StartsWithNoCase(info.Label, letters_);
    };
    letters_ += typed;
    if (letters_.size() > 1) {
        if (const auto found = FindAround(items, current, begins)) {
            return found;
        }
    }
    letters_.clear();
    if (typed >= u'1' && typed <= u'9') {
        const auto number = static_cast<std::uint32_t>(typed - u'0');
        const auto found = FindAround(
            items, next, [number](const CMenuItemInfo& info) { return info.Number() == number; });
        if (found) {
            return found;
        }
    }
    letters_ = typed;
    const auto found = FindAround(items, next, begins);
    if (!found) {
        letters_.clear();
    }
    return found;
}

int KeyStepsTo(const std::vector<const CMenuItemInfo*>& items, std::optional<std::size_t> selected,
               std::size_t target) {
    // Without a selection the first press goes to the first item. Separators are passed over.
    const std::size_t from = selected ? std::min(*selected, target) : 0;
    const std::size_t to = selected ? std::max(*selected, target) : target + 1;
    int steps = 0;
    for (std::size_t i = from; i < to; ++i) {
        steps += items[i]->IsSeparator() ? 0 : 1;
    }
    return selected && *selected > target ? -steps : steps;
}

}  // namespace vbr
