// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "base/text.h"
#include "fakes/guard_fixture.h"
#include "fakes/macro_fixture.h"
#include "fakes/menu_history_fixture.h"
#include "fakes/native_profile_store.h"
#include "fakes/phrase_tree.h"
#include "menu/phrase_menu_handler.h"

namespace vbr {

// Shows nothing and gives the choice that the test made.
class FakeMenuPresenter : public MenuPresenter {
  public:
    MenuSubject Choice;
    PhraseMenu Shown;  // the last menu; empty when none opened
    std::optional<Point> Place;
    std::function<void()> WhileShown = [] {};

    MenuSubject Show(PhraseMenu menu, std::optional<Point> at) override {
        Shown = std::move(menu);
        Place = at;
        WhileShown();
        return Choice;
    }
    bool IsShown() const override { return false; }
    void ClearFonts() override {}
};

// The phrase menu's handler over stand-ins, with default settings.
struct MenuFixture {
    PhraseTree Phrases;
    MacroFixture Macros;
    FakeMenuPresenter Presenter;
    MenuHistoryFixture Clips;
    NativeProfileStore Profile;
    CVBRSettings Settings{Profile, {}};
    GuardFixture Guard;
    IDataNeededHander_MenuSelf Handler{{.Tree = Phrases.Tree,
                                        .Items = Macros.Items,
                                        .History = Clips.History,
                                        .Settings = Settings,
                                        .Texts = Macros.Texts,
                                        .Presenter = Presenter,
                                        .Clock = Phrases.Clock,
                                        .Guard = Guard.Sections,
                                        .Log = Phrases.Log,
                                        .StateOf = [](WindowHandle window) {
                                            return WindowState{window, false, {}};
                                        }}};

    MenuChoice Ask(const WPQuery& query) {
        Presenter.Shown.clear();
        WPAnswer answer;
        return Handler.OnDataNeeded(query, answer);
    }
    // The file of the phrase with that title.
    std::filesystem::path FileOf(std::u16string_view title) const {
        std::filesystem::path file;
        Phrases.Tree.WalkCommands([&](const VBRCommand& record, const VBRCommand*) {
            file = !record.IsGroup() && record.Text == title ? record.FilePath : file;
            return true;
        });
        return file;
    }
};

}  // namespace vbr
