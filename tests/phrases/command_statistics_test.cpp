// SPDX-License-Identifier: MIT
#include "phrases/command_statistics.h"

#include <gtest/gtest.h>

#include "fakes/phrase_tree.h"

namespace vbr {
namespace {

class Statistics : public testing::Test, protected PhraseTree {
  protected:
    void Write(const std::string& path, const std::string& attributes, const std::string& kind,
               const std::string& cmd) {
        Folder.Write(path + ".vellumbridge", "<VBRCommand " + attributes + "><MenuName>" + path +
                                                 "</MenuName><DataType>" + kind +
                                                 "</DataType><Cmd>" + cmd + "</Cmd></VBRCommand>");
    }

    CommandStatistics Collect() {
        Tree.LoadTree(Folder.Path());
        CommandStatistics statistics;
        statistics.MostUsed = u"left over";
        CollectStatistics(
            Tree,
            [this](const VBRCommand& record) {
                asked_.push_back(record.Cmd);
                return record.Cmd.size() + 1;
            },
            statistics);
        return statistics;
    }

    std::vector<std::u16string> asked_;
};

TEST_F(Statistics, CountRecordsKindsAndUse) {
    Write("g/text", "UsageCount=\"3\" SortID=\"1\"", "TEXT", "1234");
    Write("g/same use", "UsageCount=\"3\" SortID=\"2\"", "RTF", "12");
    Write("unused", "Excluded=\"1\"", "EXEC", "123");
    Write("empty", "UsageCount=\"2\"", "TEXT", "");
    Folder.Write("h/FOLDER_SELF.vellumbridge", "<VBRCommand UsageCount=\"1\"/>");
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

TEST_F(Statistics, TheMostUsedCanBeAGroupOrNone) {
    Write("p", "", "TEXT", "text");
    EXPECT_EQ(Collect().MostUsed, u"");
    Write("p", "UsageCount=\"4\"", "TEXT", "text");
    Folder.Write("g/FOLDER_SELF.vellumbridge", "<VBRCommand UsageCount=\"9\"/>");
    const CommandStatistics statistics = Collect();
    EXPECT_EQ(statistics.MaximalUsage, 9U);
    EXPECT_EQ(statistics.MostUsed, u"g");
    EXPECT_EQ(statistics.AllUsage, 4U);  // of phrases alone
}

}  // namespace
}  // namespace vbr
