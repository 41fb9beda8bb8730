// SPDX-License-Identifier: MIT
#include "menu/phrase_menu_handler.h"

#include "base/text.h"
#include "menu/phrase_region.h"

namespace vbr {
namespace {

constexpr std::int32_t kNoChoice = -1;

// The target needs a moment with the foreground before the text comes.
constexpr std::uint32_t kAfterChoiceMs = 100;

std::optional<ScreenPoint> PointOf(const WPQuery& query) {
    if (query.PointX == -1 && query.PointY == -1) {
        return std::nullopt;
    }
    return ScreenPoint{query.PointX, query.PointY};
}

}  // namespace

void IDataNeededHander_MenuSelf::OnDataNeeded(const WPQuery& query, WPAnswer&) {
    log_.Write(Concat(u"IDataNeededHander_MenuSelf::OnDataNeeded lcid=", query.Hkl));
    selectedText_ = query.SelText;
    hkl_ = query.Hkl;
    // The query may end while the menu is open.
    const WindowHandle target = query.TargetWindow;
    const PhraseMenu menu = guard_.Run(kFaultMakeMenu, PhraseMenu(), [this] { return MakeMenu(); });
    std::uint32_t choice = 0;
    if (!menu.empty()) {
        choice = presenter_.Show(menu, PointOf(query));
    }
    if (choice != 0) {
        clock_.Sleep(kAfterChoiceMs);
    }
    notice_(choice == 0 ? kNoChoice : static_cast<std::int32_t>(choice), target);
}

void IDataNeededHander_MenuSelf::RememberCommand(std::uint32_t id) {
    if (tree_.FindCommand(id)) {
        lastCommandId_ = id;
    }
}

PhraseMenu IDataNeededHander_MenuSelf::MakeMenu() const {
    PhraseMenu menu;
    AddPhraseRegion(tree_.Commands(),
                    {.Input = {selectedText_, clipboardAtHotkey_, LanguageOf(hkl_)},
                     .LastCommandId = lastCommandId_,
                     .HoldsLastCommand =
                         [this](const VBRCommand& group) {
                             return tree_.GroupHoldsCommand(group, lastCommandId_);
                         }},
                    items_, menu);
    if (!menu.empty() && menu.back().IsSeparator()) {
        menu.pop_back();
    }
    return menu;
}

}  // namespace vbr
