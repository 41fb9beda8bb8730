// SPDX-License-Identifier: MIT
#include "menu/phrase_menu_handler.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "fakes/menu_desk.h"
#include "fakes/menu_picture.h"
#include "menu/extra_commands.h"
#include "menu/right_menu_commands.h"

namespace vbr {
namespace {

// The menu of phrases alone, until a test turns on more.
class PhraseMenuHandler : public testing::Test, protected MenuDesk {
  protected:
    PhraseMenuHandler() {
        Settings.ExtMenuCommand = {};
        Settings.AddLastUsedMenuToBegin = false;
    }

    // Phrases titled by one letter each, in this order.
    void AddInOrder(std::string_view titles) {
        for (const char title : titles) {
            VBRCommand record;
            record.Text = std::u16string(1, static_cast<char16_t>(title));
            record.SortID = ++sortId_;
            Phrases.Folder.Write(std::string(1, title) + ".vellumbridge", CommandToXml(record));
        }
        Phrases.Tree.LoadTree(Phrases.Folder.Path());
    }

    void Remember(std::u16string_view title) {
        for (std::uint32_t id = 1; id < Phrases.Tree.NextCommandId(); ++id) {
            if (Phrases.Tree.FindCommand(id)->Text == title) {
                Handler.RememberCommand(id);
            }
        }
    }

    std::string MenuFor(const WPQuery& query = {}) {
        Ask(query);
        return Picture(Presenter.Shown);
    }

    std::uint32_t sortId_ = 0;
};

TEST_F(PhraseMenuHandler, WithoutPhrasesAndHistoryNoMenuOpens) {
    Settings.ExtMenuCommand = {true, true, true};
    Ask({.TargetWindow = 7});
    EXPECT_TRUE(Presenter.Shown.empty());
    EXPECT_EQ(Notice, "-1 for 7 after 0 ms, locked");
    History.AddTexts(1);
    EXPECT_EQ(MenuFor(),
              "1:clip A - Edit menu\\settings ~Selection into Phrase -Visit to us- "
              "Technical Support");
}

TEST_F(PhraseMenuHandler, AChoiceIsToldWithItsTargetWhenThatHadTimeForTheForeground) {
    Phrases.Add("a.vellumbridge", u"text");
    Presenter.WhileShown = [this] { EXPECT_TRUE(History.Locked); };
    for (const auto& [choice, expected] : std::vector<std::pair<std::uint32_t, std::string>>{
             {0, "-1"}, {1, "1"}, {2014, "2014"}, {32772, "-2"}, {32826, "-4"}, {32784, "-6"}}) {
        Phrases.Clock.Tick = 0;
        Presenter.Choice = choice;
        Ask({.TargetWindow = 7});
        EXPECT_EQ(Notice, expected + (choice == 0 ? " for 7 after 0 ms, locked"
                                                  : " for 7 after 100 ms, locked"));
        EXPECT_FALSE(History.Locked);
    }
}

TEST_F(PhraseMenuHandler, TheMenuDoesNotEndInASeparator) {
    Phrases.Add("a.vellumbridge", u"text", kDataTypeText, kSeparatorAfter);
    EXPECT_EQ(MenuFor(), "a");
}

TEST_F(PhraseMenuHandler, TheMenuOpensAtTheQuerysPointElseAtTheMouse) {
    Phrases.Add("a.vellumbridge", u"text");
    Ask({.PointX = -1, .PointY = 5});
    EXPECT_EQ(Presenter.Place, (Point{-1, 5}));
    Ask({});
    EXPECT_EQ(Presenter.Place, std::nullopt);
}

TEST_F(PhraseMenuHandler, TheGroupsAboveTheLastPhraseAreMarked) {
    Phrases.Add("g/d.vellumbridge", u"text");
    Phrases.Add("g/h/c.vellumbridge", u"text");
    const std::pair<std::u16string_view, std::string> cases[] = {{u"c", "*g(d - *h(*c))"},
                                                                 {u"d", "*g(*d - h(c))"}};
    for (const auto& [last, expected] : cases) {
        Remember(last);
        EXPECT_EQ(MenuFor(), expected);
    }
}

TEST_F(PhraseMenuHandler, CaptionsAreMadeFromTheQueryAndTheClipboardAtTheHotKey) {
    Phrases.Add("a.vellumbridge", u"%SELECTED_TEXT%|%CLIPBOARD_TEXT%|%WEEKDAYNAME%");
    Handler.SetClipboardAtHotkey(u"clip");
    EXPECT_EQ(MenuFor({.Hkl = 0x04090000 | kRussian, .SelText = u"sel"}), "sel|clip|воскресенье");
}

TEST_F(PhraseMenuHandler, TheLastPhrasesStandFirstAsManyAsTheUserWants) {
    Settings.AddLastUsedMenuToBegin = true;
    AddInOrder("abcdef");
    EXPECT_EQ(MenuFor(), "a b c d e f");
    const std::pair<std::uint32_t, std::string> cases[] = {
        {1, "1:*d -Other commands- a b c e f"},
        {2, "1:*d 2:c -Other commands- a b e f"},
        {9, "1:*d 2:c 3:b -Other commands- a e f"},
        {0, "1:*d 2:c 3:b -Other commands- a e f"}};
    for (const auto& [count, expected] : cases) {
        Settings.AddLastUsedMenuToBegin_Count = count;
        for (const char16_t* title : {u"a", u"b", u"d", u"c", u"d"}) {
            Remember(title);
        }
        Handler.RememberCommand(kFirstHistoryItem);
        EXPECT_EQ(MenuFor(), expected);
    }
    Settings.AddLastUsedMenuToBegin = false;
    EXPECT_EQ(MenuFor(), "a b c *d e f");
}

TEST_F(PhraseMenuHandler, ARecentPhraseThatIsGoneIsToldOnceAndTheMenuOpens) {
    Settings.AddLastUsedMenuToBegin = true;
    AddInOrder("ab");
    const std::filesystem::path gone = Phrases.Tree.FindCommand(2)->FilePath;
    Handler.RememberCommand(2);
    std::filesystem::remove(gone);
    Phrases.Tree.LoadTree({});
    EXPECT_EQ(MenuFor(), gone.stem() == "b" ? "a" : "b");
    MenuFor();
    EXPECT_EQ(Guard.Box.Shown,
              std::vector<FakeAlertBox::Box>(
                  {{u"ERROR IDataNeededHander_MenuSelf::MakeMenu", u"Vellumbridge", 0x40010}}));
    EXPECT_EQ(Guard.Log.Lines.size(), 1U);
}

TEST_F(PhraseMenuHandler, AFaultInTheHistoryLeavesThePhrasesAndTheItemsBeforeIt) {
    Phrases.Add("a.vellumbridge", u"text");
    History.AddTexts(20);
    History.OnCaption = [](std::size_t index) {
        if (index == 1) {
            throw Fault{0xC0000005};
        }
    };
    EXPECT_EQ(MenuFor(), "a -Clipboard History [15/20]- 1:clip A");
    EXPECT_EQ(Guard.Box.Shown.size(), 1U);
}

TEST_F(PhraseMenuHandler, TheHistoryCanBeLeftOut) {
    Phrases.Add("a.vellumbridge", u"text");
    History.AddTexts(1);
    Settings.InsertCHIntoMenu = false;
    Settings.ExtMenuCommand.Support = true;
    EXPECT_EQ(MenuFor(), "a -Clipboard History [Skipped]- Technical Support");
}

class RightMenu : public testing::Test, protected MenuDesk {
  protected:
    std::string journal_;
    bool copies_ = true;
    RightMenuCommands commands_{{Phrases.Tree, Handler,
                                 [](const VBRCommand& record) { return record.Cmd; },
                                 [this](bool plain, std::u16string_view text) {
                                     journal_ += (plain ? "plain " : "rich ") + Utf16ToUtf8(text);
                                     return copies_;
                                 },
                                 [this](std::size_t index) {
                                     journal_ += "clip " + std::to_string(index);
                                     return copies_;
                                 },
                                 [this] { journal_ += ", kept"; }, Phrases.Log}};
};

TEST_F(RightMenu, CopiedTextStaysOnTheClipboardAndThePhraseCountsAsChosen) {
    for (const auto& [type, expected] :
         {std::pair(kDataTypeText, "plain text"), std::pair(kDataTypeRtf, "rich text"),
          std::pair(kDataTypeExec, "plain text")}) {
        Phrases.Add("a.vellumbridge", u"text", type);
        for (copies_ = true;; copies_ = false) {
            journal_.clear();
            EXPECT_FALSE(commands_.OnRightMenuCommand(0, 1));
            EXPECT_EQ(journal_, copies_ ? expected + std::string(", kept") : expected);
            if (!copies_) {
                break;
            }
        }
    }
    Ask({});
    EXPECT_TRUE(Picture(Presenter.Shown).starts_with("1:*"));
}

TEST_F(RightMenu, AHistoryItemIsCopiedByItsPlace) {
    commands_.OnRightMenuCommand(0, 2003);
    EXPECT_EQ(journal_, "clip 3, kept");
    copies_ = false;
    commands_.OnRightMenuCommand(0, 2000);
    EXPECT_EQ(journal_, "clip 3, keptclip 0");
    commands_.OnRightMenuCommand(0, 7);  // neither a phrase nor an item
    EXPECT_EQ(journal_, "clip 3, keptclip 0");
}

TEST_F(RightMenu, OtherCodesCountAsAUseAndUnknownOnesDoNothing) {
    Phrases.Add("a.vellumbridge", u"text");
    commands_.OnRightMenuCommand(8, 1);
    Ask({});
    EXPECT_EQ(Presenter.Shown[0].Info.Number(), 0U);
    commands_.OnRightMenuCommand(7, 1);
    Ask({});
    EXPECT_EQ(Presenter.Shown[0].Info.Number(), 1U);
    EXPECT_EQ(journal_, "");
}

}  // namespace
}  // namespace vbr
