// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "base/text.h"
#include "fakes/guard_desk.h"
#include "fakes/macro_desk.h"
#include "fakes/phrase_tree.h"
#include "menu/phrase_menu_handler.h"
#include "menu/phrase_region.h"

namespace vbr {
namespace {

// The id of a phrase is the first character of its title.
VBRCommand Phrase(std::u16string_view title, std::uint32_t flags = 0) {
    VBRCommand record;
    record.Text = title;
    record.CMDID = title[0];
    record.FlagsMenu = flags;
    return record;
}

VBRCommand Disabled(std::u16string_view title, std::uint32_t flags = 0) {
    VBRCommand record = Phrase(title, flags);
    record.Enabled = false;
    return record;
}

template <typename... Children>
VBRCommand Group(std::u16string_view title, std::uint32_t flags, Children... children) {
    VBRCommand record = Phrase(title, flags);
    record.Commands = std::make_unique<std::vector<VBRCommand>>();
    (record.Commands->push_back(std::move(children)), ...);
    return record;
}

// "~a - G(*b)": grayed "~", marked "*", a separator "-", a popup's children in brackets.
std::string Picture(const PhraseMenu& menu) {
    std::string picture;
    for (const PhraseMenuItem& item : menu) {
        picture += Utf16ToUtf8(Concat(picture.empty() ? u"" : u" ", item.IsSeparator() ? u"-" : u"",
                                      item.Grayed ? u"~" : u"", item.Info.Mark ? u"*" : u"",
                                      item.Info.Label));
        picture += item.IsPopup() ? "(" + Picture(item.Children) + ")" : "";
    }
    return picture;
}

template <typename... Records>
std::string MenuOf(const PhraseRegionState& state, Records... records) {
    const MacroDesk desk;
    PhraseMenu menu;
    AddPhraseRegion(*Group(u"root", 0, std::move(records)...).Commands, state, desk.Items, menu);
    return Picture(menu);
}

TEST(PhraseRegion, PhrasesStandBeforeGroupsWithOneSeparatorBetween) {
    EXPECT_EQ(MenuOf({}, Group(u"G", 0, Group(u"H", 0, Phrase(u"c")), Phrase(u"d")),
                     Group(u"I", 0, Phrase(u"e")), Phrase(u"a"), Phrase(u"b")),
              "a b - G(d - H(c)) I(e)");
    EXPECT_EQ(MenuOf({}, Group(u"G", 0, Phrase(u"a")), Group(u"H", 0, Phrase(u"b"))), "G(a) H(b)");
}

TEST(PhraseRegion, SeparatorsThatRecordsAskForAreNeverDoubled) {
    constexpr std::uint32_t kBoth = kSeparatorBefore | kSeparatorAfter;
    EXPECT_EQ(MenuOf({}, Phrase(u"a"), Phrase(u"b", kSeparatorBefore), Phrase(u"c")), "a - b c");
    EXPECT_EQ(MenuOf({}, Phrase(u"a", kSeparatorAfter), Phrase(u"b", kBoth), Phrase(u"c", kBoth),
                     Group(u"G", kBoth, Phrase(u"d")), Group(u"H", kBoth, Phrase(u"e"))),
              "a - b - c - G(d) - H(e) -");
}

TEST(PhraseRegion, DisabledPhrasesAndGroupsThatShowNothingAreLeftOut) {
    EXPECT_EQ(MenuOf({}, Phrase(u"a"), Disabled(u"b", kSeparatorBefore),
                     Group(u"G", kSeparatorAfter, Group(u"H", 0, Disabled(u"c"))), Group(u"I", 0)),
              "a");
}

TEST(PhraseRegion, APhraseThatNeedsASelectionIsGrayedWithoutOne) {
    for (const bool selected : {false, true}) {
        VBRCommand needy = Phrase(u"a");
        needy.DisabledIsNoHasSelection = true;
        EXPECT_EQ(MenuOf({.Input = {.SelText = selected ? u"selected" : u""}}, std::move(needy),
                         Phrase(u"b")),
                  selected ? "a b" : "~a b");
    }
}

TEST(PhraseItem, SaysWhatThePhraseWouldGive) {
    const MacroDesk desk;
    VBRCommand record = Phrase(u"a title");
    record.Cmd = u"%ACTIVATE_KL_EN%<%SELECTED_TEXT%>%CURSOR_POS%";
    record.DataType = kDataTypeExec;
    const CMenuItemInfo info = desk.Items.DescribePhrase(record, {.SelText = u"sel"});
    EXPECT_EQ(info.Label, u"a title [sel]");
    EXPECT_EQ(info.Tip,
              Concat(desk.Previews.BuildMenuTip(record, info.Label, {.SelText = u"sel"}, nullptr),
                     u"\n\n        right click on item for extended menu"));
    EXPECT_EQ(info.ExpandedText, u"<sel>");
    EXPECT_EQ(info.RightText, u"+BR");
    EXPECT_EQ(info.PhraseData, record.Cmd);
    EXPECT_EQ(info.CursorPos, 5);
    EXPECT_EQ(info.CommandId, record.CMDID);
    EXPECT_EQ(info.DataType, kDataTypeExec);
}

TEST(PhraseItem, KeepsTheStartOfALongPhrase) {
    const MacroDesk desk;
    VBRCommand record = Phrase(u"a");
    record.Cmd = std::u16string(254, u'x') + u"🙂";
    const CMenuItemInfo info = desk.Items.DescribePhrase(record, {});
    EXPECT_EQ(info.PhraseData, std::u16string(254, u'x'));
    EXPECT_EQ(info.ExpandedText, record.Cmd);
    EXPECT_EQ(info.RightText, u"");
}

class FakeMenuPresenter : public MenuPresenter {
  public:
    std::uint32_t Choice = 0;
    std::vector<std::string> Menus;
    std::optional<ScreenPoint> Place;

    std::uint32_t Show(const PhraseMenu& menu, std::optional<ScreenPoint> at) override {
        Menus.push_back(Picture(menu));
        Place = at;
        return Choice;
    }
    bool IsShown() const override { return false; }
};

class PhraseMenuHandler : public testing::Test {
  protected:
    using Menus = std::vector<std::string>;

    void Ask(const WPQuery& query) {
        WPAnswer answer;
        handler_.OnDataNeeded(query, answer);
    }

    PhraseTree phrases_;
    MacroDesk desk_;
    FakeMenuPresenter presenter_;
    GuardDesk guard_;
    std::string notice_;
    IDataNeededHander_MenuSelf handler_{
        phrases_.Tree,
        desk_.Items,
        presenter_,
        phrases_.Clock,
        guard_.Sections,
        [this](std::int32_t choice, WindowHandle target) {
            notice_ = Utf16ToUtf8(
                Concat(choice, u" for ", target, u" after ", phrases_.Clock.Tick, u" ms"));
        },
        phrases_.Log};
};

TEST_F(PhraseMenuHandler, WithoutPhrasesNoMenuOpens) {
    Ask({.TargetWindow = 7});
    EXPECT_TRUE(presenter_.Menus.empty());
    EXPECT_EQ(notice_, "-1 for 7 after 0 ms");
}

TEST_F(PhraseMenuHandler, AChoiceIsToldWithItsTargetWhenThatHadTimeForTheForeground) {
    phrases_.Add("a.vellumbridge", u"text");
    Ask({.TargetWindow = 7});
    EXPECT_EQ(notice_, "-1 for 7 after 0 ms");
    presenter_.Choice = 1;
    Ask({.TargetWindow = 7});
    EXPECT_EQ(notice_, "1 for 7 after 100 ms");
}

TEST_F(PhraseMenuHandler, TheMenuDoesNotEndInASeparator) {
    phrases_.Add("a.vellumbridge", u"text", kDataTypeText, kSeparatorAfter);
    Ask({});
    EXPECT_EQ(presenter_.Menus, Menus{"a"});
}

TEST_F(PhraseMenuHandler, TheMenuOpensAtTheQuerysPointElseAtTheMouse) {
    phrases_.Add("a.vellumbridge", u"text");
    Ask({.PointX = -1, .PointY = 5});
    EXPECT_EQ(presenter_.Place, (ScreenPoint{-1, 5}));
    Ask({});
    EXPECT_EQ(presenter_.Place, std::nullopt);
}

TEST_F(PhraseMenuHandler, ARememberedPhraseIsMarkedInTheNextMenu) {
    phrases_.Add("a.vellumbridge", u"text");
    handler_.RememberCommand(1);
    Ask({});
    EXPECT_EQ(presenter_.Menus, Menus{"*a"});
}

TEST_F(PhraseMenuHandler, TheGroupsAboveTheLastPhraseAreMarked) {
    phrases_.Add("g/d.vellumbridge", u"text");
    phrases_.Add("g/h/c.vellumbridge", u"text");
    const std::pair<std::u16string_view, std::string> cases[] = {{u"c", "*g(d - *h(*c))"},
                                                                 {u"d", "*g(*d - h(c))"}};
    for (const auto& [last, expected] : cases) {
        for (std::uint32_t id = 1; id < phrases_.Tree.NextCommandId(); ++id) {
            if (phrases_.Tree.FindCommand(id)->Text == last) {
                handler_.RememberCommand(id);
            }
        }
        Ask({});
        EXPECT_EQ(presenter_.Menus.back(), expected);
    }
}

TEST_F(PhraseMenuHandler, CaptionsAreMadeFromTheQueryAndTheClipboardAtTheHotKey) {
    phrases_.Add("a.vellumbridge", u"%SELECTED_TEXT%|%CLIPBOARD_TEXT%|%WEEKDAYNAME%");
    handler_.SetClipboardAtHotkey(u"clip");
    Ask({.Hkl = 0x04090000 | kRussian, .SelText = u"sel"});
    EXPECT_EQ(presenter_.Menus, Menus{"sel|clip|воскресенье"});
}

}  // namespace
}  // namespace vbr
