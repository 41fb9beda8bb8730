// SPDX-License-Identifier: MIT
#include "menu/phrase_menu_handler.h"

#include <gtest/gtest.h>
#include <map>

#include "base/text.h"
#include "fakes/menu_fixture.h"
#include "fakes/menu_picture.h"
#include "menu/extra_commands.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

// The menu of phrases alone, until a test turns on more.
class PhraseMenuHandler : public testing::Test, protected MenuFixture {
  protected:
    PhraseMenuHandler() {
        Settings.ExtMenuCommand = {};
        Settings.AddLastUsedMenuToBegin = false;
    }

    // Phrases titled by one letter each, in this order.
    void AddInOrder(std::string_view titles) {
        for (const char title : titles) {
            Phrases.Write(std::string(1, title) + ".vellumbridge", {.SortID = ++sortId_});
        }
        Phrases.Tree.LoadTree(Phrases.Folder.Path());
    }

    void Remember(std::u16string_view title) { Menu.RememberCommand(FileOf(title)); }

    MenuChoice Ask(const WPQuery& query) {
        Presenter.Shown.clear();
        WPAnswer answer;
        return Menu.OnDataNeeded(query, answer);
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
    std::string MenuFor(const WPQuery& query = {}) {
        Ask(query);
        return Picture(Presenter.Shown);
    }

    std::uint32_t sortId_ = 0;
};

TEST_F(PhraseMenuHandler, WithoutPhrasesAndHistoryNoMenuOpens) {
    Settings.ExtMenuCommand = {true, true, true};
    EXPECT_EQ(Ask({.TargetWindow = 7}), MenuChoice());
    EXPECT_TRUE(Presenter.Shown.empty());
    Clips.AddClips(1);
    EXPECT_EQ(MenuFor(),
              "1:clip A - Edit menu\\settings ~Selection into Phrase -Visit to us- "
              "Technical Support");
}

TEST_F(PhraseMenuHandler, AChoiceIsToldByWhatItIs) {
    Phrases.Add("a.vellumbridge", u"text");
    Clips.AddClips(2);
    const std::uint32_t older = Clips.History.IdOf(1);
    Presenter.WhileShown = [this] { EXPECT_TRUE(Clips.Queue.IsLocked()); };
    const std::pair<MenuSubject, MenuChoice> cases[] = {
        {{}, {}},
        {{MenuSubjectKind::Phrase, 1}, FileOf(u"a")},
        {{MenuSubjectKind::HistoryItem, older}, ClipId{older}},
        {{MenuSubjectKind::ExtraCommand, kCmdEditPhrases}, kResultEditPhrases},
        {{MenuSubjectKind::ExtraCommand, kCmdSupport}, kResultSupport},
    };
    for (const auto& [chosen, told] : cases) {
        Presenter.Choice = chosen;
        EXPECT_EQ(Ask({.TargetWindow = 7}), told);
        EXPECT_FALSE(Clips.Queue.IsLocked());
    }
}

TEST_F(PhraseMenuHandler, ThingsThatShareANumberHaveNumbersOfTheirOwnInTheMenu) {
    Settings.AddLastUsedMenuToBegin = true;
    Settings.ExtMenuCommand.EditSetting = true;
    Clips.AddClips(3);
    for (int i = 1; i <= 2001; ++i) {
        Phrases.Write(std::to_string(i) + ".vellumbridge");
    }
    Phrases.Tree.LoadTree(Phrases.Folder.Path());
    Menu.RememberCommand(Phrases.Tree.FindCommand(2000)->FilePath);
    Ask({});
    std::map<std::uint32_t, MenuSubject> byNumber;
    for (const PhraseMenuItem& item : Presenter.Shown) {
        if (!item.IsSeparator()) {
            EXPECT_EQ(byNumber.try_emplace(item.Info.CommandId, item.Info.Subject).first->second,
                      item.Info.Subject);
        }
    }
    // The clips, and of the phrases the recent one stands twice.
    EXPECT_EQ(byNumber.size(), 2001U + 3 + 1);
    EXPECT_EQ(byNumber[2000].Kind, MenuSubjectKind::Phrase);
    EXPECT_EQ(byNumber[2002].Kind, MenuSubjectKind::HistoryItem);
}

TEST_F(PhraseMenuHandler, ANumberFromOutsideIsAPhraseAndElseAClip) {
    Phrases.Add("group/a.vellumbridge", u"text");
    Clips.AddClips(1);
    EXPECT_EQ(Menu.ChoiceOfNumber(2), MenuChoice(FileOf(u"a")));
    EXPECT_EQ(Menu.ChoiceOfNumber(2000), MenuChoice(ClipId{Clips.History.IdOf(0)}));
    for (const std::uint32_t nothing : {0U, 1U, 3U, 1999U, 2001U}) {  // 1 is the group
        EXPECT_EQ(Menu.ChoiceOfNumber(nothing), MenuChoice()) << nothing;
    }
}

TEST_F(PhraseMenuHandler, TheMarkAndTheRecentPhrasesFollowTheirFilesWhenIdsChange) {
    Settings.AddLastUsedMenuToBegin = true;
    AddInOrder("bc");
    Remember(u"b");
    Remember(u"c");
    Phrases.Write("a.vellumbridge");
    std::filesystem::remove(FileOf(u"b"));
    Phrases.Tree.LoadTree({});
    Menu.ForgetMissing();
    EXPECT_EQ(MenuFor(), "1:*c -Other commands- a");
    EXPECT_TRUE(Guard.Box.Shown.empty());
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
    Remember(u"c");
    EXPECT_EQ(MenuFor(), "*g(d - *h(*c))");
    Remember(u"d");
    EXPECT_EQ(MenuFor(), "*g(*d - h(c))");
}

TEST_F(PhraseMenuHandler, CaptionsAreMadeFromTheQueryAndTheClipboardAtTheHotKey) {
    Phrases.Add("a.vellumbridge", u"%SELECTED_TEXT%|%CLIPBOARD_TEXT%|%WEEKDAYNAME%");
    Menu.SetClipboardAtHotkey(u"clip");
    EXPECT_EQ(MenuFor({.Hkl = 0x04090000 | kRussian, .SelText = u"sel"}), "sel|clip|среда");
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
        Menu.RememberCommand(Phrases.Folder.Path());
        EXPECT_EQ(MenuFor(), expected);
    }
    Settings.AddLastUsedMenuToBegin = false;
    EXPECT_EQ(MenuFor(), "a b c *d e f");
}

TEST_F(PhraseMenuHandler, ARecentPhraseThatIsGoneIsToldOnceAndTheMenuOpens) {
    Settings.AddLastUsedMenuToBegin = true;
    AddInOrder("ab");
    Remember(u"b");
    std::filesystem::remove(FileOf(u"b"));
    Phrases.Tree.LoadTree({});
    for (int times = 0; times < 2; ++times) {
        EXPECT_EQ(MenuFor(), "a");
        EXPECT_EQ(Guard.Box.Shown.size(), 1U);
    }
}

TEST_F(PhraseMenuHandler, AFaultInTheHistoryLeavesThePhrasesAndTheItemsBeforeIt) {
    Phrases.Add("a.vellumbridge", u"text");
    Clips.AddClip(u"older");
    Clips.Add(ByteItem(CHF_RTF, "{faulty}"));
    Clips.AddClip(u"newest");
    Clips.Engine.OnLoad = [] { throw Fault{0xC0000005}; };
    EXPECT_EQ(MenuFor(), "a -Clipboard History [3/3]- 1:newest");
    EXPECT_EQ(Guard.Box.Shown.size(), 1U);
}

TEST_F(PhraseMenuHandler, TheHistoryCanBeLeftOut) {
    Phrases.Add("a.vellumbridge", u"text");
    Clips.AddClips(1);
    Settings.InsertCHIntoMenu = false;
    Settings.ExtMenuCommand.Support = true;
    EXPECT_EQ(MenuFor(), "a -Clipboard History [Skipped]- Technical Support");
}

TEST_F(PhraseMenuHandler, ARightClickCopiesAPhraseAsItsKindAndCountsItAsChosen) {
    const std::uint32_t rich = Clipboard.RegisterFormat(kRichTextFormat);
    for (const std::int32_t type : {kDataTypeText, kDataTypeRtf, kDataTypeExec}) {
        Phrases.Add("a.vellumbridge", u"{text}", type);
        EXPECT_FALSE(RightMenu.OnRightMenuCommand(0, FileOf(u"a")));
        EXPECT_EQ(Clipboard.IsFormatAvailable(rich), type == kDataTypeRtf);
    }
    EXPECT_EQ(Clipboard.Find(kClipUnicodeText)->Bytes, FakeClipboardAccess::Text(u"{text}").Bytes);
    EXPECT_EQ(MenuFor(), "*a");
}

TEST_F(PhraseMenuHandler, ARightClickCopiesAClipByItsIdAndAFailureIsLogged) {
    RightMenu.OnRightMenuCommand(0, ClipId{3});
    EXPECT_FALSE(Macros.Log.Tells(u"ERROR"));
    RightMenu.OnRightMenuCommand(0, ClipId{0});
    EXPECT_TRUE(Macros.Log.Tells(u"ERROR"));
    RightMenu.OnRightMenuCommand(0, MenuChoice());
    EXPECT_EQ(CopiedClips, (std::vector<std::uint32_t>{3, 0}));
}

TEST_F(PhraseMenuHandler, OtherCodesOfARightClickCountAsAUseAndUnknownOnesDoNothing) {
    Phrases.Add("a.vellumbridge", u"text");
    RightMenu.OnRightMenuCommand(8, FileOf(u"a"));
    EXPECT_EQ(MenuFor(), "a");
    RightMenu.OnRightMenuCommand(7, FileOf(u"a"));
    EXPECT_EQ(MenuFor(), "*a");
    EXPECT_TRUE(Clipboard.Blocks.empty());
}

}  // namespace
}  // namespace vbr
