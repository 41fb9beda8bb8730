// SPDX-License-Identifier: MIT
#include "menu/queue_history.h"

#include <gtest/gtest.h>

#include "fakes/menu_history_fixture.h"
#include "menu/history_region.h"
#include "phrases/command_record.h"
#include "settings/embedded_strings.h"

namespace vbr {
namespace {

class QueueHistoryTest : public testing::Test, protected MenuHistoryFixture {};

TEST_F(QueueHistoryTest, ItemsStandInTheMenuTheNewestFirstAndAreDeliveredByTheirId) {
    Queue.Add(TextItem(u"older\r\nsecond line"), kNoItemLimit);
    Queue.Add(ByteItem(CHF_RTF, "{\\rtf1 rich}"), kNoItemLimit);
    Queue.Add(ByteItem(CHF_KELPNOTES, "notes"), kNoItemLimit);
    PhraseMenu menu;
    const EmbeddedStrings strings;
    AddHistoryRegion(History, {.WithTips = true}, strings, menu);
    ASSERT_EQ(menu.size(), 3U);
    EXPECT_EQ(menu[2].Info.Label, u"older…");
    EXPECT_NE(menu[2].Info.Tip.find(u"second line"), std::u16string::npos);
    EXPECT_EQ(menu[1].Info.DataType, kDataTypeRtf);
    const auto clip = [this](std::size_t index) { return History.AsClip(History.IdOf(index)); };
    EXPECT_EQ(clip(0), std::nullopt);
    EXPECT_EQ(clip(1), (ClipText{kDataTypeRtf, u"{\\rtf1 rich}"}));
    EXPECT_EQ(clip(2), (ClipText{kDataTypeText, u"older\r\nsecond line"}));
    EXPECT_EQ(History.AsClip(Queue.GetItem(0)->id + 1), std::nullopt);
}

TEST_F(QueueHistoryTest, WhileTheMenuIsOpenNoItemIsAdded) {
    History.SetLocked(true);
    EXPECT_FALSE(Queue.Add(TextItem(u"new"), kNoItemLimit));
    History.SetLocked(false);
    EXPECT_TRUE(Queue.Add(TextItem(u"new"), kNoItemLimit));
    EXPECT_EQ(History.GetCount(), 1U);
}

TEST_F(QueueHistoryTest, APlaceWithoutAnItemIsEmpty) {
    EXPECT_EQ(History.MenuCaptionText(0), u"");
    EXPECT_EQ(History.FullText(0), u"");
    EXPECT_EQ(History.SourceUrl(0), u"");
    EXPECT_EQ(History.MenuTip(0), u"");
    EXPECT_EQ(History.KindOf(0), MenuHistoryKind::Other);
}

}  // namespace
}  // namespace vbr
