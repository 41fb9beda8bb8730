// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "base/text.h"
#include "fakes/menu_history_fixture.h"
#include "fakes/menu_picture.h"
#include "menu/extra_commands.h"
#include "menu/history_region.h"
#include "phrases/command_record.h"
#include "settings/embedded_strings.h"

namespace vbr {
namespace {

std::string HistoryOf(int count, const HistoryRegionOptions& options, bool phraseBefore = true) {
    MenuHistoryFixture clips;
    clips.AddClips(count);
    PhraseMenu menu;
    if (phraseBefore) {
        menu.emplace_back().Info.Label = u"a";
    }
    AddHistoryRegion(clips.History, options, EmbeddedStrings(), menu);
    std::u16string picture = Utf8ToUtf16(Picture(menu));
    ReplaceAll(picture, u"Clipboard History", u"CH");
    ReplaceAll(picture, u"clip ", u"");
    return Utf16ToUtf8(picture);
}

TEST(HistoryRegion, StandsInTheMenuAsTheUserWants) {
    EXPECT_EQ(HistoryOf(0, {}), "a");
    EXPECT_EQ(HistoryOf(2, {}), "a -CH [2/2]- 1:A 2:B");
    EXPECT_EQ(HistoryOf(2, {}, false), "1:A 2:B");
    EXPECT_EQ(HistoryOf(20, {.MaxItems = 3}), "a -CH [3/20]- 1:A 2:B 3:C");
    EXPECT_EQ(HistoryOf(3, {.MaxItems = 0, .AsSubMenu = true}), "a - CH [3](1:A 2:B 3:C)");
    EXPECT_EQ(HistoryOf(3, {.MaxItems = 2, .AsSubMenu = true}), "a - CH [2\\3](1:A 2:B)");
}

TEST(HistoryRegion, WhatTheMainMenuHasNoRoomForGoesBelowIt) {
    const std::string main = "1:A 2:B 3:C 4:D 5:E 6:F 7:G 8:H 9:I 10:J 11:K 12:L 13:M 14:N 15:O";
    EXPECT_EQ(HistoryOf(15, {}, false), main);
    EXPECT_EQ(HistoryOf(16, {}, false), main + " More History [16 - 16](16:P)");
    EXPECT_EQ(HistoryOf(20, {.MaxItems = 18}, false),
              main + " More History [16 - 18](16:P 17:Q 18:R)");
}

TEST(HistoryRegion, AnItemIsDescribedByItsKindAndDeliveredByItsId) {
    MenuHistoryFixture clips;
    clips.Add(std::make_unique<CCHItem>(CHF_BITMAP, 0, TimeAt(1)));
    clips.Add(ByteItem(CHF_RTF, "{rich}"));
    clips.AddClip(u"text");
    PhraseMenu menu;
    AddHistoryRegion(clips.History, {}, EmbeddedStrings(), menu);
    ASSERT_EQ(menu.size(), 3U);
    EXPECT_EQ(menu[1].Info.DataType, 1);
    EXPECT_EQ(menu[2].Info.DataType, 0);
    EXPECT_TRUE(menu[2].Info.Bitmap);
    EXPECT_FALSE(menu[1].Info.Bitmap);
    EXPECT_EQ(menu[2].Info.CommandId, 2002U);
    EXPECT_EQ(menu[2].Info.Subject,
              (MenuSubject{MenuSubjectKind::HistoryItem, clips.Queue.GetItem(2)->id}));
    EXPECT_EQ(menu[2].Info.Row, 2);
    // The size of a picture's name says nothing about it.
    EXPECT_NE(menu[2].Info.Tip.find(u"\tChars: 0\n"), std::u16string::npos);
    const auto clip = [&](std::size_t index) {
        return clips.History.AsClip(clips.History.IdOf(index));
    };
    EXPECT_EQ(clip(0), (ClipText{kDataTypeText, u"text"}));
    EXPECT_EQ(clip(1), (ClipText{kDataTypeRtf, u"{rich}"}));
    EXPECT_EQ(clip(2), std::nullopt);
    EXPECT_EQ(clips.History.Preview(3).Start, u"");
}

TEST(HistoryRegion, CaptionsAndTipsAreMadeOnceAndKept) {
    MenuHistoryFixture clips;
    clips.AddClip(u" one two ");
    PhraseMenu menu;
    AddHistoryRegion(clips.History, {}, EmbeddedStrings(), menu);
    EXPECT_EQ(menu[0].Info.Label, u"one two");
    EXPECT_EQ(menu[0].Info.ExpandedText, u" one two ");
    EXPECT_EQ(clips.History.MenuTip(0), menu[0].Info.Tip);
    clips.History.MenuCaption(0) = u"kept";
    clips.History.MenuTip(0) = u"kept too";
    menu.clear();
    AddHistoryRegion(clips.History, {}, EmbeddedStrings(), menu);
    EXPECT_EQ(menu[0].Info.Label, u"kept");
    EXPECT_EQ(menu[0].Info.Tip, u"kept too");
}

TEST(HistoryRegion, ATipShowsTheStartAndTheEndOfALongText) {
    const std::pair<std::u16string, std::u16string> cases[] = {
        {u"one line", u"Lines: 1\n\none line"},
        {u"1\r\n2\n3\r4", u"Lines: 4\n\n1\r\n2\n3\r4"},
        {u"1\r\n2\r\n3\r\n4\r\n5", u"Lines: 5\n\n1\r\n2\r\n3\n\t………\n3\r\n4\r\n5"},
        {u"\n\n\n\nend", u"Lines: 5\n\n\n\n\n\t………\n\n\nend"},
        {u"1\r2\r3\r4\r5\r6\r", u"Lines: 7\n\n1\r2\r3\n\t………\n5\r6\r"},
    };
    for (const auto& [text, expected] : cases) {
        MenuHistoryFixture clips;
        clips.AddClip(text, u"http://example.org/");
        EXPECT_EQ(Utf16ToUtf8(HistoryTip(clips.History, 0, EmbeddedStrings())),
                  Utf16ToUtf8(Concat(u"\tURL: http://example.org/\n\nInsert plain text: Data from "
                                     u"clipboard history\n\tChars: ",
                                     text.size(), u", ", expected,
                                     u"\n\n        right click on item for extended menu")));
    }
}

TEST(HistoryRegion, ATipOfALongTextIsShort) {
    const std::u16string line(3U << 20, u'x');
    const std::u16string longLine(5000, u'y');
    MenuHistoryFixture clips;
    clips.AddClip(u"first " + line + u" last");
    EXPECT_LT(HistoryTip(clips.History, 0, EmbeddedStrings()).size(), 10'000U);
    EXPECT_THAT(
        Utf16ToUtf8(clips.History.MenuTip(0)),
        testing::AllOf(testing::HasSubstr("Chars: 3145739\n\nfirst xx"),
                       testing::HasSubstr("x…\n\t………\n…x"), testing::HasSubstr("x last\n\n  ")));
    clips.AddClip(u"first\n" + longLine + u"\nlast");
    EXPECT_THAT(Utf16ToUtf8(HistoryTip(clips.History, 0, EmbeddedStrings())),
                testing::HasSubstr("Lines: 3\n\nfirst\n" + std::string(2000, 'y') + "…\nlast\n"));
}

TEST(ExtraCommands, StandAtTheEndAsTheUserWants) {
    const std::u16string long39(39, u'x');
    const std::tuple<ExtMenuCommands, std::u16string, std::string> cases[] = {
        {{}, u"", "a"},
        {{true, false, false}, u"", "a - Edit menu\\settings"},
        {{false, true, false}, u"", "a - ~Selection into Phrase"},
        {{false, true, false}, u"two\r\nlines", "a - Selection into Phrase [two  lines]…"},
        {{false, true, false},
         long39 + u"🙂",
         "a - Selection into Phrase [" + Utf16ToUtf8(long39) + "]…"},
        {{false, false, true}, u"", "a - Technical Support"},
        {{true, false, true}, u"", "a - Edit menu\\settings -Visit to us- Technical Support"},
    };
    for (const auto& [commands, selection, expected] : cases) {
        PhraseMenu menu(1);
        menu[0].Info.Label = u"a";
        AddExtraCommands(commands, true, selection, EmbeddedStrings(), menu);
        EXPECT_EQ(Picture(menu), expected);
    }
}

TEST(MenuLabels, StayOnOneLineAndLoseNothingElse) {
    EXPECT_EQ(MenuLabel(u"a&b\tc\r\nשלום\xD800"), u"a&b c  שלום\xD800");
    EXPECT_EQ(MenuLabel(std::u16string(300, u'x')).size(), kItemTextMax);
}

}  // namespace
}  // namespace vbr
