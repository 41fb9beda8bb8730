// SPDX-License-Identifier: MIT
#include "phrases/command_statistics.h"

#include <gtest/gtest.h>

#include "fakes/phrase_tree.h"

namespace vbr {
namespace {

class Statistics : public testing::Test {
  protected:
    void Write(const std::string& path, const std::string& attributes, const std::string& kind,
               const std::string& cmd) {
        phrases_.Folder.Write(path + ".vellumbridge", "<VBRCommand " + attributes + "><MenuName>" +
                                                          path + "</MenuName><DataType>" + kind +
                                                          "</DataType><Cmd>" + cmd +
                                                          "</Cmd></VBRCommand>");
    }

    CommandStatistics Collect() {
        phrases_.Tree.LoadTree(phrases_.Folder.Path());
        CommandStatistics statistics;
        statistics.MostUsed = u"left over";
        CollectStatistics(
            phrases_.Tree,
            [this](const VBRCommand& record) {
                asked_.push_back(record.Cmd);
                return record.Cmd.size() + 1;
            },
            statistics);
        return statistics;
    }

    PhraseTree phrases_;
    std::vector<std::u16string> asked_;
};

TEST_F(Statistics, CountRecordsKindsAndUse) {
    Write("g/text", "UsageCount=\"3\" SortID=\"1\"", "TEXT", "1234");
    Write("g/same use", "UsageCount=\"3\" SortID=\"2\"", "RTF", "12");
    Write("unused", "Excluded=\"1\"", "EXEC", "123");
    Write("empty", "UsageCount=\"2\"", "TEXT", "");
    phrases_.Folder.Write("h/FOLDER_SELF.vellumbridge", "<VBRCommand UsageCount=\"1\"/>");
    const CommandStatistics statistics = Collect();
    EXPECT_EQ(statistics.AllRecords, 6U);
    EXPECT_EQ(statistics.EnabledRecords, 4U);  // g and its two phrases, empty
    EXPECT_EQ(statistics.Folders, 2U);
    EXPECT_EQ(statistics.PlainText, 2U);
    EXPECT_EQ(statistics.FormattedText, 1U);
    EXPECT_EQ(statistics.Exec, 1U);
    EXPECT_EQ(statistics.AllUsage, 8U);
    EXPECT_EQ(statistics.MaximalUsage, 3U);
    EXPECT_EQ(statistics.MostUsed, u"g/text");
    EXPECT_EQ(statistics.Characters, 3U * 5 + 3U * 3);
    EXPECT_EQ(asked_, (std::vector<std::u16string>{u"1234", u"12"}));
}

TEST_F(Statistics, AGroupCanBeTheMostUsedButIsNotInTheSum) {
    Write("p", "UsageCount=\"4\"", "TEXT", "text");
    phrases_.Folder.Write("g/FOLDER_SELF.vellumbridge", "<VBRCommand UsageCount=\"9\"/>");
    const CommandStatistics statistics = Collect();
    EXPECT_EQ(statistics.MaximalUsage, 9U);
    EXPECT_EQ(statistics.MostUsed, u"g");
    EXPECT_EQ(statistics.AllUsage, 4U);
}

TEST_F(Statistics, WithoutUseThereIsNoMostUsedPhrase) {
    Write("p", "", "TEXT", "text");
    const CommandStatistics statistics = Collect();
    EXPECT_EQ(statistics.MaximalUsage, 0U);
    EXPECT_EQ(statistics.MostUsed, u"");
    EXPECT_EQ(statistics.Characters, 0U);
}

}  // namespace
}  // namespace vbr
