// SPDX-License-Identifier: MIT
#include "phrases/command_tree.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <set>

#include "base/text.h"
#include "fakes/phrase_tree.h"

namespace vbr {
namespace {

class CommandTree : public testing::Test, protected PhraseTree {
  protected:
    void AddPhrase(const std::string& path, std::uint32_t sortId, bool enabled = true) {
        VBRCommand record;
        record.Text = std::filesystem::path(path).stem().u16string();
        record.Cmd = u"text";
        record.SortID = sortId;
        record.Enabled = enabled;
        Folder.Write(path, CommandToXml(record));
    }

    void AddFolderSelf(const std::string& path, const std::string& attributes) {
        Folder.Write(path + "/FOLDER_SELF.vellumbridge", "<VBRCommand " + attributes + " />");
    }

    std::vector<std::u16string> Titles(const std::vector<VBRCommand>& list) const {
        std::vector<std::u16string> titles;
        std::transform(list.begin(), list.end(), std::back_inserter(titles),
                       [](const VBRCommand& record) { return record.Text; });
        return titles;
    }

    using TitleList = std::vector<std::u16string>;
};

TEST_F(CommandTree, GroupsStandBeforePhrasesEachBySortId) {
    AddPhrase("last.vellumbridge", 7);
    AddPhrase("first.VELLUMBRIDGE", 1);
    AddPhrase("late group/a.vellumbridge", 1);
    AddFolderSelf("late group", "SortID=\"9\"");
    AddPhrase("early group/z.vellumbridge", 1);
    AddPhrase("early group/y.vellumbridge", 0);
    Folder.Write("readme.txt", "not a phrase");
    Tree.LoadTree(Folder.Path());
    EXPECT_EQ(Titles(Tree.Commands()),
              (TitleList{u"early group", u"late group", u"first", u"last"}));
    EXPECT_EQ(Titles(*Tree.Commands()[0].Commands), (TitleList{u"y", u"z"}));
    EXPECT_TRUE(Log.Lines.empty());
}

TEST_F(CommandTree, IdsRunFrom1WithoutGapsAndFindTheirRecords) {
    for (int i = 0; i < 20; ++i) {
        AddPhrase("g" + std::to_string(i % 3) + "/sub/p" + std::to_string(i) + ".vellumbridge", 1);
    }
    Folder.Write("g0/bad.vellumbridge", "<VBRCommand>");
    Tree.LoadTree(Folder.Path());
    const CommandCounts counts = Tree.CountCommands();
    EXPECT_EQ(counts.Total, 26U);
    EXPECT_EQ(Tree.NextCommandId(), 27U);
    std::set<std::u16string> paths;
    for (std::uint32_t id = 1; id <= 26; ++id) {
        ASSERT_NE(Tree.FindCommand(id), nullptr);
        EXPECT_EQ(Tree.FindCommand(id)->CMDID, id);
        paths.insert(Tree.FindCommand(id)->FilePath.u16string());
    }
    EXPECT_EQ(paths.size(), 26U);
    EXPECT_EQ(Tree.FindCommand(0), nullptr);
    EXPECT_EQ(Tree.FindCommand(27), nullptr);
}

TEST_F(CommandTree, GroupIsEnabledByAnyRecordBelowIt) {
    AddPhrase("on/deep/p.vellumbridge", 1);
    AddPhrase("on/q.vellumbridge", 1, false);
    AddFolderSelf("on", "Excluded=\"1\"");
    AddPhrase("off/p.vellumbridge", 1, false);
    AddFolderSelf("empty", "SortID=\"3\"");
    Tree.LoadTree(Folder.Path());
    for (const VBRCommand& group : Tree.Commands()) {
        EXPECT_EQ(group.IsEnabled(), group.Text == u"on") << group.FilePath;
    }
    EXPECT_EQ(Tree.CountCommands().Total, 7U);
    EXPECT_EQ(Tree.CountCommands().Enabled, 3U);
}

TEST_F(CommandTree, ParentsAndHeldPhrasesFollowTheFolders) {
    AddPhrase("root phrase.vellumbridge", 1);
    AddPhrase("outer/inner/deep phrase.vellumbridge", 1);
    AddFolderSelf("other", "SortID=\"1\"");
    Tree.LoadTree(Folder.Path());
    std::map<std::u16string, std::uint32_t> ids;
    for (std::uint32_t id = 1; id < Tree.NextCommandId(); ++id) {
        ids[Tree.FindCommand(id)->Text] = id;
    }
    const auto record = [&](const char16_t* title) { return Tree.FindCommand(ids.at(title)); };
    EXPECT_EQ(Tree.FindParent(ids.at(u"deep phrase")), record(u"inner"));
    EXPECT_EQ(Tree.FindParent(ids.at(u"inner")), record(u"outer"));
    EXPECT_EQ(Tree.FindParent(ids.at(u"root phrase")), nullptr);
    EXPECT_EQ(Tree.FindParent(0), nullptr);
    EXPECT_EQ(Tree.FindParent(Tree.NextCommandId()), nullptr);

    const auto holders = [&](const char16_t* title) {
        TitleList groups;
        for (const char16_t* group : {u"outer", u"inner", u"other"}) {
            if (Tree.GroupHoldsCommand(*record(group), ids.at(title))) {
                groups.push_back(group);
            }
        }
        return groups;
    };
    EXPECT_EQ(holders(u"deep phrase"), (TitleList{u"outer", u"inner"}));
    EXPECT_EQ(holders(u"root phrase"), TitleList{});
    EXPECT_EQ(holders(u"inner"), TitleList{});  // a group isn't held
    EXPECT_FALSE(Tree.GroupHoldsCommand(*record(u"outer"), 99));
}

TEST_F(CommandTree, AWalkSeesParentsFirstAndEndsOneListAtATime) {
    AddPhrase("g/h/a.vellumbridge", 1);
    AddPhrase("g/h/b.vellumbridge", 2);
    AddPhrase("g/c.vellumbridge", 1);
    AddPhrase("g/d.vellumbridge", 2);
    AddPhrase("e.vellumbridge", 1);
    Tree.LoadTree(Folder.Path());
    const std::pair<std::u16string_view, std::u16string_view> cases[] = {
        {u"", u" /g g/h h/a h/b g/c g/d /e"},
        {u"a", u" /g g/h h/a g/c g/d /e"},
        {u"c", u" /g g/h h/a h/b g/c /e"},
        {u"h", u" /g g/h /e"},
        {u"g", u" /g"}};
    for (const auto& [last, expected] : cases) {
        std::u16string walk;
        const std::size_t visited =
            Tree.WalkCommands([&walk, last](const VBRCommand& record, const VBRCommand* parent) {
                walk += Concat(u" ", parent ? parent->Text : u"", u"/", record.Text);
                return record.Text != last;
            });
        EXPECT_EQ(walk, expected);
        EXPECT_EQ(visited, static_cast<std::size_t>(std::count(walk.begin(), walk.end(), u' ')));
    }
}

TEST_F(CommandTree, FolderSelfGivesOnlyWhatAGroupHas) {
    Folder.Write("g/FOLDER_SELF.vellumbridge",
                 "<VBRCommand SortID=\"2\" FlagsMenu=\"1\" UsageCount=\"3\" "
                 "DateUsage=\"2020|1|1|1|1|1\"><MenuName>other</MenuName><Cmd>x</Cmd>"
                 "</VBRCommand>");
    Tree.LoadTree(Folder.Path());
    const VBRCommand& group = Tree.Commands().at(0);
    EXPECT_EQ(group.Text, u"g");
    EXPECT_EQ(group.SortID, 2U);
    EXPECT_EQ(group.FlagsMenu, 1U);
    EXPECT_EQ(group.UsageCount, 3);
    EXPECT_EQ(group.DateUsage.Year, 0);
    EXPECT_EQ(group.Cmd, u"");
}

TEST_F(CommandTree, BadFilesAreSkippedWithALineEach) {
    AddPhrase("good.vellumbridge", 1);
    Folder.Write("empty.vellumbridge", "");
    Folder.Write("g/FOLDER_SELF.vellumbridge", "<broken");
    Folder.Write("untitled.vellumbridge", "<VBRCommand><Cmd>x</Cmd></VBRCommand>");
    Tree.LoadTree(Folder.Path());
    EXPECT_EQ(Titles(Tree.Commands()), (TitleList{u"g", u"good"}));
    ASSERT_EQ(Log.Lines.size(), 3U);
    for (const std::u16string_view file : {u"empty.v", u"FOLDER_SELF.v", u"untitled.v"}) {
        EXPECT_TRUE(std::any_of(Log.Lines.begin(), Log.Lines.end(),
                                [file](const auto& line) { return line.find(file) != line.npos; }));
    }
}

TEST_F(CommandTree, MissingFolderEmptiesTheTreeAndAnEmptyArgumentMeansTheLastOne) {
    AddPhrase("p.vellumbridge", 1);
    Tree.LoadTree(Folder.Path());
    Tree.LoadTree(Folder.Path() / "missing");
    EXPECT_TRUE(Tree.Commands().empty());
    EXPECT_EQ(Tree.NextCommandId(), 1U);
    Tree.LoadTree({});
    EXPECT_EQ(Titles(Tree.Commands()), TitleList{u"p"});
}

TEST_F(CommandTree, UsageIsCountedStampedAndSaved) {
    AddPhrase("p.vellumbridge", 1);
    Tree.LoadTree(Folder.Path());
    Clock.Utc = {.Year = 2026, .Month = 11, .Day = 22, .Hour = 1, .Minute = 2, .Second = 3};
    Tree.RecordUsage(1);
    Tree.RecordUsage(1);
    Tree.RecordUsage(99);
    Saver.Flush();
    Tree.LoadTree({});
    EXPECT_EQ(Tree.Commands().at(0).UsageCount, 2);
    EXPECT_EQ(Tree.Commands().at(0).DateUsage, Clock.Utc);
    EXPECT_EQ(Tree.Commands().at(0).Cmd, u"text");
}

TEST_F(CommandTree, RecordWithoutFileGetsAnUnusedNameInItsGroupsFolder) {
    AddPhrase("g/same title.vellumbridge", 1);
    Folder.Write("g/same_title.vellumbridge", "taken");
    Tree.LoadTree(Folder.Path());
    VBRCommand* record = Tree.FindCommand(2);
    ASSERT_NE(record, nullptr);
    record->FilePath.clear();
    Tree.SaveCommand(2);
    Saver.Flush();
    EXPECT_EQ(record->FilePath, Folder.Path() / "g/same_title2.vellumbridge");
    EXPECT_EQ(Folder.Read("g/same_title.vellumbridge"), "taken");
    EXPECT_EQ(Folder.Read("g/same_title2.vellumbridge"), CommandToXml(*record));
}

}  // namespace
}  // namespace vbr
