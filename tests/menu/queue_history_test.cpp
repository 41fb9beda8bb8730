// SPDX-License-Identifier: MIT
#include "menu/queue_history.h"

#include <gtest/gtest.h>

#include "fakes/fake_ansi_text.h"
#include "fakes/fake_rich_text_engine.h"
#include "fakes/history_fixture.h"
#include "menu/history_region.h"
#include "phrases/command_record.h"
#include "settings/embedded_strings.h"

namespace vbr {
namespace {

class QueueHistoryTest : public testing::Test, protected HistoryFixture {
  protected:
    FakeAnsiText ansi_;
    FakeRichTextEngine engine_;
    ItemTexts texts_{ansi_, engine_, Log};
    QueueHistory history_{Queue, texts_};
};

TEST_F(QueueHistoryTest, ItemsStandInTheMenuTheNewestFirstAndAreDeliveredByTheirPlace) {
    Queue.Add(TextItem(u"older\r\nsecond line"), kNoItemLimit);
    Queue.Add(ByteItem(CHF_RTF, "{\\rtf1 rich}"), kNoItemLimit);
    Queue.Add(ByteItem(CHF_KELPNOTES, "notes"), kNoItemLimit);
    PhraseMenu menu;
    const EmbeddedStrings strings;
    AddHistoryRegion(history_, {.WithTips = true}, strings, menu);
    ASSERT_EQ(menu.size(), 3U);
    EXPECT_EQ(menu[2].Info.Label, u"older…");
    EXPECT_NE(menu[2].Info.Tip.find(u"second line"), std::u16string::npos);
    EXPECT_EQ(menu[1].Info.DataType, kDataTypeRtf);
    EXPECT_EQ(history_.AsPhrase(0), std::nullopt);
    EXPECT_EQ(history_.AsPhrase(1)->DataType, kDataTypeRtf);
    EXPECT_EQ(history_.AsPhrase(1)->Text, u"{\\rtf1 rich}");
    EXPECT_EQ(history_.AsPhrase(2)->Text, u"older\r\nsecond line");
    EXPECT_EQ(history_.AsPhrase(3), std::nullopt);
}

TEST_F(QueueHistoryTest, WhileTheMenuIsOpenNoItemIsAdded) {
    history_.SetLocked(true);
    EXPECT_FALSE(Queue.Add(TextItem(u"new"), kNoItemLimit));
    history_.SetLocked(false);
    EXPECT_TRUE(Queue.Add(TextItem(u"new"), kNoItemLimit));
    EXPECT_EQ(history_.GetCount(), 1U);
}

TEST_F(QueueHistoryTest, APlaceWithoutAnItemIsEmpty) {
    EXPECT_EQ(history_.MenuCaptionText(0), u"");
    EXPECT_EQ(history_.FullText(0), u"");
    EXPECT_EQ(history_.SourceUrl(0), u"");
    EXPECT_EQ(history_.MenuTip(0), u"");
    EXPECT_EQ(history_.KindOf(0), MenuHistoryKind::Other);
}

}  // namespace
}  // namespace vbr
