// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "base/text.h"
#include "fakes/fake_menu_history.h"
#include "fakes/guard_desk.h"
#include "fakes/macro_desk.h"
#include "fakes/native_profile_store.h"
#include "fakes/phrase_tree.h"
#include "menu/phrase_menu_handler.h"

namespace vbr {

// Shows nothing and gives the choice that the test made.
class FakeMenuPresenter : public MenuPresenter {
  public:
    std::uint32_t Choice = 0;
    PhraseMenu Shown;  // the last menu; empty when none opened
    std::optional<Point> Place;
    std::function<void()> WhileShown = [] {};

    std::uint32_t Show(PhraseMenu menu, std::optional<Point> at) override {
        Shown = std::move(menu);
        Place = at;
        WhileShown();
        return Choice;
    }
    bool IsShown() const override { return false; }
    void ClearFonts() override {}
};

// The phrase menu's handler over stand-ins, with default settings.
struct MenuDesk {
    PhraseTree Phrases;
    MacroDesk Macros;
    FakeMenuPresenter Presenter;
    FakeMenuHistory History;
    NativeProfileStore Profile;
    CVBRSettings Settings{Profile, {}};
    GuardDesk Guard;
    std::string Notice;
    IDataNeededHander_MenuSelf Handler{
        {Phrases.Tree, Macros.Items, History, Settings, Macros.Texts, Presenter, Phrases.Clock,
         Guard.Sections, Phrases.Log,
         [](WindowHandle window) {
             return WindowState{window, false, {}};
         }},
        [this](std::int32_t choice, WindowHandle target) {
            Notice = Utf16ToUtf8(Concat(choice, u" for ", target, u" after ", Phrases.Clock.Tick,
                                        u" ms", History.Locked ? u", locked" : u""));
        }};

    void Ask(const WPQuery& query) {
        Presenter.Shown.clear();
        WPAnswer answer;
        Handler.OnDataNeeded(query, answer);
    }
};

}  // namespace vbr
