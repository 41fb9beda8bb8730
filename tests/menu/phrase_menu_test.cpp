// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "base/text.h"
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
    PhraseMenu menu;
    AddPhraseRegion(*Group(u"root", 0, std::move(records)...).Commands, state, menu);
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
        EXPECT_EQ(MenuOf({.HasSelection = selected}, std::move(needy), Phrase(u"b")),
                  selected ? "a b" : "~a b");
    }
}

TEST(PhraseRegion, TheLastCommandAndTheGroupsAboveItAreMarked) {
    EXPECT_EQ(MenuOf({.LastCommandId = 'c'}, Group(u"G", 0, Group(u"H", 0, Phrase(u"c"))),
                     Group(u"I", 0, Phrase(u"d")), Phrase(u"a")),
              "a - *G(*H(*c)) I(d)");
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

    PhraseTree phrases_;
    FakeMenuPresenter presenter_;
    std::string notice_;
    IDataNeededHander_MenuSelf handler_{
        phrases_.Tree, presenter_, phrases_.Clock,
        [this](std::int32_t choice, WindowHandle target) {
            notice_ = Utf16ToUtf8(
                Concat(choice, u" for ", target, u" after ", phrases_.Clock.Tick, u" ms"));
        },
        phrases_.Log};
};

TEST_F(PhraseMenuHandler, WithoutPhrasesNoMenuOpens) {
    handler_.OnDataNeeded({.TargetWindow = 7});
    EXPECT_TRUE(presenter_.Menus.empty());
    EXPECT_EQ(notice_, "-1 for 7 after 0 ms");
}

TEST_F(PhraseMenuHandler, AChoiceIsToldWithItsTargetWhenThatHadTimeForTheForeground) {
    phrases_.Add("a.vellumbridge", u"text");
    handler_.OnDataNeeded({.TargetWindow = 7});
    EXPECT_EQ(notice_, "-1 for 7 after 0 ms");
    presenter_.Choice = 1;
    handler_.OnDataNeeded({.TargetWindow = 7});
    EXPECT_EQ(notice_, "1 for 7 after 100 ms");
}

TEST_F(PhraseMenuHandler, TheMenuDoesNotEndInASeparator) {
    phrases_.Add("a.vellumbridge", u"text", kDataTypeText, kSeparatorAfter);
    handler_.OnDataNeeded({});
    EXPECT_EQ(presenter_.Menus, Menus{"a"});
}

TEST_F(PhraseMenuHandler, TheMenuOpensAtTheQuerysPointElseAtTheMouse) {
    phrases_.Add("a.vellumbridge", u"text");
    handler_.OnDataNeeded({.PointX = -1, .PointY = 5});
    EXPECT_EQ(presenter_.Place, (ScreenPoint{-1, 5}));
    handler_.OnDataNeeded({});
    EXPECT_EQ(presenter_.Place, std::nullopt);
}

TEST_F(PhraseMenuHandler, ARememberedPhraseIsMarkedInTheNextMenu) {
    phrases_.Add("a.vellumbridge", u"text");
    handler_.RememberCommand(1);
    handler_.OnDataNeeded({});
    EXPECT_EQ(presenter_.Menus, Menus{"*a"});
}

}  // namespace
}  // namespace vbr
