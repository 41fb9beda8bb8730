// SPDX-License-Identifier: MIT
#include "menu/phrase_region.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "fakes/macro_fixture.h"
#include "fakes/menu_picture.h"

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

template <typename... Records>
std::string MenuOf(const PhraseRegionState& state, Records... records) {
    const MacroFixture fixture;
    PhraseMenu menu;
    AddPhraseRegion(*Group(u"root", 0, std::move(records)...).Commands, state, fixture.Items, menu);
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

TEST(PhraseRegion, RecentPhrasesAreNumberedAndStandInTheirMenuOnce) {
    const MacroFixture fixture;
    std::vector<VBRCommand> list;
    list.push_back(Group(u"G", 0, Phrase(u"c")));
    list.push_back(Phrase(u"a"));
    list.push_back(Phrase(u"b", kSeparatorBefore));
    PhraseMenu menu;
    AddRecentRegion({&list[0].Commands->front(), &list[2]}, {.LastCommandId = u'c'}, fixture.Items,
                    menu);
    AddPhraseRegion(list, {.LastCommandId = u'c'}, fixture.Items, menu);
    EXPECT_EQ(Picture(menu), "1:*c 2:b a - G(*c)");
}

TEST(PhraseItem, SaysWhatThePhraseWouldGive) {
    const MacroFixture fixture;
    VBRCommand record = Phrase(u"a title");
    record.Cmd = u"%ACTIVATE_KL_EN%<%SELECTED_TEXT%>%CURSOR_POS%";
    record.DataType = kDataTypeExec;
    const CMenuItemInfo info = fixture.Items.DescribePhrase(record, {.SelText = u"sel"});
    EXPECT_EQ(info.Label, u"a title [sel]");
    EXPECT_TRUE(info.Tip.starts_with(
        fixture.Previews.BuildMenuTip(record, info.Label, {.SelText = u"sel"}, nullptr) + u"\n\n"));
    EXPECT_EQ(info.ExpandedText, u"<sel>");
    EXPECT_EQ(info.RightText, u"+BR");
    EXPECT_EQ(info.PhraseData, record.Cmd);
    EXPECT_EQ(info.CommandId, record.CMDID);
    EXPECT_EQ(info.DataType, kDataTypeExec);
    record.DataType = kDataTypeText;
    EXPECT_EQ(fixture.Items.DescribePhrase(record, {.SelText = u"sel"}).CursorPos, 5);
}

TEST(PhraseItem, KeepsTheStartOfALongPhrase) {
    const MacroFixture fixture;
    VBRCommand record = Phrase(u"a");
    record.Cmd = std::u16string(254, u'x') + u"🙂";
    const CMenuItemInfo info = fixture.Items.DescribePhrase(record, {});
    EXPECT_EQ(info.PhraseData, std::u16string(254, u'x'));
    EXPECT_EQ(info.ExpandedText, record.Cmd);
    EXPECT_EQ(info.RightText, u"");
}

}  // namespace
}  // namespace vbr
