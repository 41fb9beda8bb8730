// SPDX-License-Identifier: MIT
#include "menu/phrase_menu_handler.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "fakes/menu_desk.h"
#include "fakes/menu_picture.h"
#include "menu/extra_commands.h"

namespace vbr {
namespace {

// The menu of phrases alone, until a test turns on more.
class PhraseMenuHandler : public testing::Test {
  protected:
    PhraseMenuHandler() {
        settings_.ExtMenuCommand = {};
        settings_.AddLastUsedMenuToBegin = false;
    }

    // Phrases titled by one letter each, in this order.
    void AddInOrder(std::string_view titles) {
        for (const char title : titles) {
            VBRCommand record;
            record.Text = std::u16string(1, static_cast<char16_t>(title));
            record.SortID = ++sortId_;
            phrases_.Folder.Write(std::string(1, title) + ".vellumbridge", CommandToXml(record));
        }
        phrases_.Tree.LoadTree(phrases_.Folder.Path());
    }

    void Remember(std::u16string_view title) {
        for (std::uint32_t id = 1; id < phrases_.Tree.NextCommandId(); ++id) {
            if (phrases_.Tree.FindCommand(id)->Text == title) {
                handler_.RememberCommand(id);
            }
        }
    }

    std::string MenuFor(const WPQuery& query = {}) {
        desk_.Ask(query);
        return Picture(presenter_.Shown);
    }

    std::uint32_t sortId_ = 0;
    MenuDesk desk_;
    PhraseTree& phrases_ = desk_.Phrases;
    FakeMenuPresenter& presenter_ = desk_.Presenter;
    FakeMenuHistory& history_ = desk_.History;
    CVBRSettings& settings_ = desk_.Settings;
    GuardDesk& guard_ = desk_.Guard;
    std::string& notice_ = desk_.Notice;
    IDataNeededHander_MenuSelf& handler_ = desk_.Handler;
};

TEST_F(PhraseMenuHandler, WithoutPhrasesAndHistoryNoMenuOpens) {
    settings_.ExtMenuCommand = {true, true, true};
    desk_.Ask({.TargetWindow = 7});
    EXPECT_TRUE(presenter_.Shown.empty());
    EXPECT_EQ(notice_, "-1 for 7 after 0 ms, locked");
    history_.AddTexts(1);
    EXPECT_EQ(MenuFor(),
              "1:clip A - Edit menu\\settings ~Selection into Phrase -Visit to us- "
              "Technical Support");
}

TEST_F(PhraseMenuHandler, AChoiceIsToldWithItsTargetWhenThatHadTimeForTheForeground) {
    phrases_.Add("a.vellumbridge", u"text");
    presenter_.WhileShown = [this] { EXPECT_TRUE(history_.Locked); };
    for (const auto& [choice, expected] : std::vector<std::pair<std::uint32_t, std::string>>{
             {0, "-1"}, {1, "1"}, {2014, "2014"}, {32772, "-2"}, {32826, "-4"}, {32784, "-6"}}) {
        phrases_.Clock.Tick = 0;
        presenter_.Choice = choice;
        desk_.Ask({.TargetWindow = 7});
        EXPECT_EQ(notice_, expected + (choice == 0 ? " for 7 after 0 ms, locked"
                                                   : " for 7 after 100 ms, locked"));
        EXPECT_FALSE(history_.Locked);
    }
}

TEST_F(PhraseMenuHandler, TheMenuDoesNotEndInASeparator) {
    phrases_.Add("a.vellumbridge", u"text", kDataTypeText, kSeparatorAfter);
    EXPECT_EQ(MenuFor(), "a");
}

TEST_F(PhraseMenuHandler, TheMenuOpensAtTheQuerysPointElseAtTheMouse) {
    phrases_.Add("a.vellumbridge", u"text");
    desk_.Ask({.PointX = -1, .PointY = 5});
    EXPECT_EQ(presenter_.Place, (ScreenPoint{-1, 5}));
    desk_.Ask({});
    EXPECT_EQ(presenter_.Place, std::nullopt);
}

TEST_F(PhraseMenuHandler, TheGroupsAboveTheLastPhraseAreMarked) {
    phrases_.Add("g/d.vellumbridge", u"text");
    phrases_.Add("g/h/c.vellumbridge", u"text");
    const std::pair<std::u16string_view, std::string> cases[] = {{u"c", "*g(d - *h(*c))"},
                                                                 {u"d", "*g(*d - h(c))"}};
    for (const auto& [last, expected] : cases) {
        Remember(last);
        EXPECT_EQ(MenuFor(), expected);
    }
}

TEST_F(PhraseMenuHandler, CaptionsAreMadeFromTheQueryAndTheClipboardAtTheHotKey) {
    phrases_.Add("a.vellumbridge", u"%SELECTED_TEXT%|%CLIPBOARD_TEXT%|%WEEKDAYNAME%");
    handler_.SetClipboardAtHotkey(u"clip");
    EXPECT_EQ(MenuFor({.Hkl = 0x04090000 | kRussian, .SelText = u"sel"}), "sel|clip|воскресенье");
}

TEST_F(PhraseMenuHandler, TheLastPhrasesStandFirstAsManyAsTheUserWants) {
    settings_.AddLastUsedMenuToBegin = true;
    AddInOrder("abcdef");
    EXPECT_EQ(MenuFor(), "a b c d e f");
    const std::pair<std::uint32_t, std::string> cases[] = {
        {1, "1:*d -Other commands- a b c e f"},
        {2, "1:*d 2:c -Other commands- a b e f"},
        {9, "1:*d 2:c 3:b -Other commands- a e f"},
        {0, "1:*d 2:c 3:b -Other commands- a e f"}};
    for (const auto& [count, expected] : cases) {
        settings_.AddLastUsedMenuToBegin_Count = count;
        for (const char16_t* title : {u"a", u"b", u"d", u"c", u"d"}) {
            Remember(title);
        }
        handler_.RememberCommand(kFirstHistoryItem);
        EXPECT_EQ(MenuFor(), expected);
    }
    settings_.AddLastUsedMenuToBegin = false;
    EXPECT_EQ(MenuFor(), "a b c *d e f");
}

TEST_F(PhraseMenuHandler, ARecentPhraseThatIsGoneIsToldOnceAndTheMenuOpens) {
    settings_.AddLastUsedMenuToBegin = true;
    AddInOrder("ab");
    const std::filesystem::path gone = phrases_.Tree.FindCommand(2)->FilePath;
    handler_.RememberCommand(2);
    std::filesystem::remove(gone);
    phrases_.Tree.LoadTree({});
    EXPECT_EQ(MenuFor(), gone.stem() == "b" ? "a" : "b");
    MenuFor();
    EXPECT_EQ(guard_.Box.Shown,
              std::vector<FakeAlertBox::Box>(
                  {{u"ERROR IDataNeededHander_MenuSelf::MakeMenu", u"Vellumbridge", 0x40010}}));
    EXPECT_EQ(guard_.Log.Lines.size(), 1U);
}

TEST_F(PhraseMenuHandler, AFaultInTheHistoryLeavesThePhrasesAndTheItemsBeforeIt) {
    phrases_.Add("a.vellumbridge", u"text");
    history_.AddTexts(20);
    history_.OnCaption = [](std::size_t index) {
        if (index == 1) {
            throw Fault{0xC0000005};
        }
    };
    EXPECT_EQ(MenuFor(), "a -Clipboard History [15/20]- 1:clip A");
    EXPECT_EQ(guard_.Box.Shown.size(), 1U);
}

TEST_F(PhraseMenuHandler, TheHistoryCanBeLeftOut) {
    phrases_.Add("a.vellumbridge", u"text");
    history_.AddTexts(1);
    settings_.InsertCHIntoMenu = false;
    settings_.ExtMenuCommand.Support = true;
    EXPECT_EQ(MenuFor(), "a -Clipboard History [Skipped]- Technical Support");
}

}  // namespace
}  // namespace vbr
