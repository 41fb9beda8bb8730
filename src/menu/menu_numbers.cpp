// SPDX-License-Identifier: MIT
#include "menu/menu_numbers.h"

#include <unordered_map>
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

// Phrases alone have numbers of their own; few menus reach the numbers of the other kinds.
bool MayShareNumbers(PhraseMenu& menu) {
    bool may = false;
    ForEachCommand(menu, [&may](const CMenuItemInfo& info) {
        may = may ||
              (info.Subject.Kind == MenuSubjectKind::Phrase && info.CommandId >= kFirstHistoryItem);
    });
    return may;
}

}  // namespace

void TellNumbersApart(PhraseMenu& menu) {
    if (!MayShareNumbers(menu)) {
        return;
    }
    std::unordered_map<std::uint32_t, MenuSubject> owners;
    std::vector<CMenuItemInfo*> sharing;
    ForEachCommand(menu, [&](CMenuItemInfo& info) {
        if (owners.try_emplace(info.CommandId, info.Subject).first->second != info.Subject) {
            sharing.push_back(&info);
        }
    });
    std::uint32_t next = 1;
    for (CMenuItemInfo* info : sharing) {
        while (!owners.try_emplace(next, info->Subject).second) {
            ++next;
        }
        info->CommandId = next;
    }
}

}  // namespace vbr
