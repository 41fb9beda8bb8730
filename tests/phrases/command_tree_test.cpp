// SPDX-License-Identifier: MIT
#include "phrases/command_tree.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <set>

#include "base/text.h"
#include "fakes/fake_clock.h"
#include "fakes/memory_log.h"
#include "fakes/native_file_store.h"
#include "fakes/temp_folder.h"

namespace vbr {
namespace {

class CommandTree : public testing::Test {
  protected:
    void AddPhrase(const std::string& path, std::uint32_t sortId, bool enabled = true) {
        VBRCommand record;
        record.Text = std::filesystem::path(path).stem().u16string();
        record.Cmd = u"text";
        record.SortID = sortId;
        record.Enabled = enabled;
        folder_.Write(path, CommandToXml(record));
    }

    void AddFolderSelf(const std::string& path, const std::string& attributes) {
        folder_.Write(path + "/FOLDER_SELF.vellumbridge", "<VBRCommand " + attributes + " />");
    }

    std::vector<std::u16string> Titles(const std::vector<VBRCommand>& list) const {
        std::vector<std::u16string> titles;
        std::transform(list.begin(), list.end(), std::back_inserter(titles),
                       [](const VBRCommand& record) { return record.Text; });
        return titles;
    }

    using TitleList = std::vector<std::u16string>;

    TempFolder folder_;
    NativeFileStore store_;
    MemoryLog log_;
    FakeClock clock_;
    CommandFiles files_{store_, log_};
    CommandSaver saver_{files_};
    CVBRCommandTree tree_{files_, saver_, clock_, log_};
};

TEST_F(CommandTree, GroupsStandBeforePhrasesEachBySortId) {
    AddPhrase("last.vellumbridge", 7);
    AddPhrase("first.VELLUMBRIDGE", 1);
    AddPhrase("late group/a.vellumbridge", 1);
    AddFolderSelf("late group", "SortID=\"9\"");
    AddPhrase("early group/z.vellumbridge", 1);
    AddPhrase("early group/y.vellumbridge", 0);
    folder_.Write("readme.txt", "not a phrase");
    tree_.LoadTree(folder_.Path());
    EXPECT_EQ(Titles(tree_.Commands()),
              (TitleList{u"early group", u"late group", u"first", u"last"}));
    EXPECT_EQ(Titles(*tree_.Commands()[0].Commands), (TitleList{u"y", u"z"}));
    EXPECT_TRUE(log_.Lines.empty());
}

TEST_F(CommandTree, IdsRunFrom1WithoutGapsAndFindTheirRecords) {
    for (int i = 0; i < 20; ++i) {
        AddPhrase("g" + std::to_string(i % 3) + "/sub/p" + std::to_string(i) + ".vellumbridge", 1);
    }
    folder_.Write("g0/bad.vellumbridge", "<VBRCommand>");
    tree_.LoadTree(folder_.Path());
    const CommandCounts counts = tree_.CountCommands();
    EXPECT_EQ(counts.Total, 26U);
    EXPECT_EQ(tree_.NextCommandId(), 27U);
    std::set<std::u16string> paths;
    for (std::uint32_t id = 1; id <= 26; ++id) {
        ASSERT_NE(tree_.FindCommand(id), nullptr);
        EXPECT_EQ(tree_.FindCommand(id)->CMDID, id);
        paths.insert(tree_.FindCommand(id)->FilePath.u16string());
    }
    EXPECT_EQ(paths.size(), 26U);
    EXPECT_EQ(tree_.FindCommand(0), nullptr);
    EXPECT_EQ(tree_.FindCommand(27), nullptr);
}

TEST_F(CommandTree, GroupIsEnabledByAnyRecordBelowIt) {
    AddPhrase("on/deep/p.vellumbridge", 1);
    AddPhrase("on/q.vellumbridge", 1, false);
    AddFolderSelf("on", "Excluded=\"1\"");
    AddPhrase("off/p.vellumbridge", 1, false);
    AddFolderSelf("empty", "SortID=\"3\"");
    tree_.LoadTree(folder_.Path());
    for (const VBRCommand& group : tree_.Commands()) {
        EXPECT_EQ(group.IsEnabled(), group.Text == u"on") << group.FilePath;
    }
    EXPECT_EQ(tree_.CountCommands().Total, 7U);
    EXPECT_EQ(tree_.CountCommands().Enabled, 3U);
}

TEST_F(CommandTree, ParentsAndHeldPhrasesFollowTheFolders) {
    AddPhrase("root phrase.vellumbridge", 1);
    AddPhrase("outer/inner/deep phrase.vellumbridge", 1);
    AddFolderSelf("other", "SortID=\"1\"");
    tree_.LoadTree(folder_.Path());
    std::map<std::u16string, std::uint32_t> ids;
    for (std::uint32_t id = 1; id < tree_.NextCommandId(); ++id) {
        ids[tree_.FindCommand(id)->Text] = id;
    }
    const auto record = [&](const char16_t* title) { return tree_.FindCommand(ids.at(title)); };
    EXPECT_EQ(tree_.FindParent(ids.at(u"deep phrase")), record(u"inner"));
    EXPECT_EQ(tree_.FindParent(ids.at(u"inner")), record(u"outer"));
    EXPECT_EQ(tree_.FindParent(ids.at(u"root phrase")), nullptr);
    EXPECT_EQ(tree_.FindParent(0), nullptr);
    EXPECT_EQ(tree_.FindParent(tree_.NextCommandId()), nullptr);

    const auto holders = [&](const char16_t* title) {
        TitleList groups;
        for (const char16_t* group : {u"outer", u"inner", u"other"}) {
            if (tree_.GroupHoldsCommand(*record(group), ids.at(title))) {
                groups.push_back(group);
            }
        }
        return groups;
    };
    EXPECT_EQ(holders(u"deep phrase"), (TitleList{u"outer", u"inner"}));
    EXPECT_EQ(holders(u"root phrase"), TitleList{});
    EXPECT_EQ(holders(u"inner"), TitleList{});  // a group isn't held
    EXPECT_FALSE(tree_.GroupHoldsCommand(*record(u"outer"), 99));
}

TEST_F(CommandTree, AWalkSeesParentsFirstAndEndsOneListAtATime) {
    AddPhrase("g/h/a.vellumbridge", 1);
    AddPhrase("g/h/b.vellumbridge", 2);
    AddPhrase("g/c.vellumbridge", 1);
    AddPhrase("g/d.vellumbridge", 2);
    AddPhrase("e.vellumbridge", 1);
    tree_.LoadTree(folder_.Path());
    const std::pair<std::u16string_view, std::u16string_view> cases[] = {
        {u"", u" /g g/h h/a h/b g/c g/d /e"},
        {u"a", u" /g g/h h/a g/c g/d /e"},
        {u"c", u" /g g/h h/a h/b g/c /e"},
        {u"h", u" /g g/h /e"},
        {u"g", u" /g"}};
    for (const auto& [last, expected] : cases) {
        std::u16string walk;
        const std::size_t visited =
            tree_.WalkCommands([&walk, last](const VBRCommand& record, const VBRCommand* parent) {
                walk += Concat(u" ", parent ? parent->Text : u"", u"/", record.Text);
                return record.Text != last;
            });
        EXPECT_EQ(walk, expected);
        EXPECT_EQ(visited, static_cast<std::size_t>(std::count(walk.begin(), walk.end(), u' ')));
    }
}

TEST_F(CommandTree, FolderSelfGivesOnlyWhatAGroupHas) {
    folder_.Write("g/FOLDER_SELF.vellumbridge",
                  "<VBRCommand SortID=\"2\" FlagsMenu=\"1\" UsageCount=\"3\" "
                  "DateUsage=\"2020|1|1|1|1|1\"><MenuName>other</MenuName><Cmd>x</Cmd>"
                  "</VBRCommand>");
    tree_.LoadTree(folder_.Path());
    const VBRCommand& group = tree_.Commands().at(0);
    EXPECT_EQ(group.Text, u"g");
    EXPECT_EQ(group.SortID, 2U);
    EXPECT_EQ(group.FlagsMenu, 1U);
    EXPECT_EQ(group.UsageCount, 3);
    EXPECT_EQ(group.DateUsage.Year, 0);
    EXPECT_EQ(group.Cmd, u"");
}

TEST_F(CommandTree, BadFilesAreSkippedWithALineEach) {
    AddPhrase("good.vellumbridge", 1);
    folder_.Write("empty.vellumbridge", "");
    folder_.Write("g/FOLDER_SELF.vellumbridge", "<broken");
    folder_.Write("untitled.vellumbridge", "<VBRCommand><Cmd>x</Cmd></VBRCommand>");
    tree_.LoadTree(folder_.Path());
    EXPECT_EQ(Titles(tree_.Commands()), (TitleList{u"g", u"good"}));
    ASSERT_EQ(log_.Lines.size(), 3U);
    for (const std::u16string_view file : {u"empty.v", u"FOLDER_SELF.v", u"untitled.v"}) {
        EXPECT_TRUE(std::any_of(log_.Lines.begin(), log_.Lines.end(),
                                [file](const auto& line) { return line.find(file) != line.npos; }));
    }
}

TEST_F(CommandTree, MissingFolderEmptiesTheTreeAndAnEmptyArgumentMeansTheLastOne) {
    AddPhrase("p.vellumbridge", 1);
    tree_.LoadTree(folder_.Path());
    tree_.LoadTree(folder_.Path() / "missing");
    EXPECT_TRUE(tree_.Commands().empty());
    EXPECT_EQ(tree_.NextCommandId(), 1U);
    tree_.LoadTree({});
    EXPECT_EQ(Titles(tree_.Commands()), TitleList{u"p"});
}

TEST_F(CommandTree, UsageIsCountedStampedAndSaved) {
    AddPhrase("p.vellumbridge", 1);
    tree_.LoadTree(folder_.Path());
    clock_.Utc = {.Year = 2026, .Month = 11, .Day = 22, .Hour = 1, .Minute = 2, .Second = 3};
    tree_.RecordUsage(1);
    tree_.RecordUsage(1);
    tree_.RecordUsage(99);
    saver_.Flush();
    tree_.LoadTree({});
    EXPECT_EQ(tree_.Commands().at(0).UsageCount, 2);
    EXPECT_EQ(tree_.Commands().at(0).DateUsage, clock_.Utc);
    EXPECT_EQ(tree_.Commands().at(0).Cmd, u"text");
}

TEST_F(CommandTree, RecordWithoutFileGetsAnUnusedNameInItsGroupsFolder) {
    AddPhrase("g/same title.vellumbridge", 1);
    folder_.Write("g/same_title.vellumbridge", "taken");
    tree_.LoadTree(folder_.Path());
    VBRCommand* record = tree_.FindCommand(2);
    ASSERT_NE(record, nullptr);
    record->FilePath.clear();
    tree_.SaveCommand(2);
    saver_.Flush();
    EXPECT_EQ(record->FilePath, folder_.Path() / "g/same_title2.vellumbridge");
    EXPECT_EQ(folder_.Read("g/same_title.vellumbridge"), "taken");
    EXPECT_EQ(folder_.Read("g/same_title2.vellumbridge"), CommandToXml(*record));
}

}  // namespace
}  // namespace vbr
