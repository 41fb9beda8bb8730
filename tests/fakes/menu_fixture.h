// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>

#include "fakes/exchange_fixture.h"
#include "fakes/guard_fixture.h"
#include "fakes/menu_history_fixture.h"
#include "fakes/native_profile_store.h"
#include "menu/phrase_menu_handler.h"
#include "menu/right_menu_commands.h"

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

// The phrase menu beside the exchange, with settings that lie in the folder of the phrases.
struct MenuFixture : ExchangeFixture {
    FakeMenuPresenter Presenter;
    MenuHistoryFixture Clips;
    std::vector<std::uint32_t> CopiedClips;
    NativeProfileStore Profile;
    CVBRSettings Settings{Profile,
                          {.Chosen = Phrases.Folder.Path() / "settings.txt",
                           .Local = Phrases.Folder.Path() / "settings.txt",
                           .User = {},
                           .ProgramFolder = {},
                           .ProgramName = {}}};
    GuardFixture Guard;
    IDataNeededHander_MenuSelf Menu{{.Tree = Phrases.Tree,
                                     .Items = Macros.Items,
                                     .History = Clips.History,
                                     .Settings = Settings,
                                     .Texts = Macros.Texts,
                                     .Presenter = Presenter,
                                     .Guard = Guard.Sections,
                                     .Log = Macros.Log,
                                     .StateOf = [](WindowHandle window) {
                                         return WindowState{window, false, {}};
                                     }}};
    RightMenuCommands RightMenu{
        {.Tree = Phrases.Tree,
         .Menu = Menu,
         .Expand =
             [this](const VBRCommand& record) { return Delivery.TextOf(record, Menu.Context()); },
         .Copy = [this](bool plain,
                        std::u16string_view text) { return Text.CopyToClipboard(plain, text, 0); },
         .CopyHistoryItem =
             [this](ClipId item) {
                 CopiedClips.push_back(item.Value);
                 return item.Value != 0;
             },
         .Log = Macros.Log}};
};

}  // namespace vbr
