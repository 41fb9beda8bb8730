// SPDX-License-Identifier: MIT
#include "menu/menu_numbers.h"

#include <algorithm>
#include <unordered_set>
#include <vector>

namespace vbr {
namespace {

template <typename Visit>
void ForEachCommand(PhraseMenu& menu, const Visit& visit) {
    for (PhraseMenuItem& item : menu) {
        if (item.IsPopup()) {
            ForEachCommand(item.Children, visit);
        } else if (!item.IsSeparator()) {
            visit(item.Info);
        }
    }
}

}  // namespace

void TellNumbersApart(PhraseMenu& menu) {
    std::vector<std::uint32_t> phrases;
    std::vector<CMenuItemInfo*> others;
    std::unordered_set<std::uint32_t> ofOthers;
    std::uint32_t highest = 0;
    ForEachCommand(menu, [&](CMenuItemInfo& info) {
        highest = std::max(highest, info.CommandId);
        if (info.Subject.Kind != MenuSubjectKind::Phrase) {
            others.push_back(&info);
            ofOthers.insert(info.CommandId);
        } else if (info.CommandId >= kFirstHistoryItem) {
            phrases.push_back(info.CommandId);
        }
    });
    std::unordered_set<std::uint32_t> shared;
    for (const std::uint32_t number : phrases) {
        if (ofOthers.contains(number)) {
            shared.insert(number);
        }
    }
    for (CMenuItemInfo* info : others) {
        if (shared.contains(info->CommandId)) {
            info->CommandId = ++highest;
        }
    }
}

}  // namespace vbr
