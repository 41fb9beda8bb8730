// SPDX-License-Identifier: MIT
#include "phrases/command_tree.h"

#include <algorithm>
#include <atomic>
#include <gtest/gtest.h>
#include <map>

#include "base/text.h"
#include "fakes/phrase_tree.h"
#include "phrases/command_statistics.h"

namespace vbr {
namespace {

class CommandTree : public testing::Test, protected PhraseTree {
  protected:
    void AddPhrase(const std::string& path, std::uint32_t sortId, bool enabled = true) {
        Write(path, {.Cmd = u"text", .SortID = sortId, .Enabled = enabled});
    }

    void AddFolderSelf(const std::string& path, const std::string& attributes) {
        Folder.Write(path + "/FOLDER_SELF.vellumbridge", "<VBRCommand " + attributes + " />");
    }

    // "group/title" of each record, in the order of a walk that `last` cuts short.
    std::u16string Walk(std::u16string_view last = {}) {
        std::u16string walk;
        const std::size_t visited =
            Tree.WalkCommands([&walk, last](const VBRCommand& record, const VBRCommand* parent) {
                walk += Concat(u" ", parent ? parent->Text : u"", u"/", record.Text);
                return record.Text != last;
            });
        EXPECT_EQ(visited, static_cast<std::size_t>(std::count(walk.begin(), walk.end(), u'/')));
        return walk;
    }

    // The files of all phrases below the folder.
    std::vector<std::u16string> Files() {
        Tree.LoadTree(Folder.Path());
        std::vector<std::u16string> files;
        Tree.WalkCommands([&](const VBRCommand& record, const VBRCommand*) {
            if (!record.IsGroup()) {
                files.push_back(record.FilePath.lexically_relative(Folder.Path()).u16string());
            }
            return true;
        });
        std::sort(files.begin(), files.end());
        return files;
    }
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
    EXPECT_EQ(Walk(),
              u" /early group early group/y early group/z /late group late group/a /first /last");
    EXPECT_TRUE(Log.Lines.empty());
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

    // Those of the groups that hold the record.
    const auto holders = [&](const char16_t* title) {
        std::u16string groups;
        for (const char16_t* group : {u"outer", u"inner", u"other"}) {
            groups += Tree.GroupHoldsCommand(*record(group), ids.at(title)) ? group : u"";
        }
        return groups;
    };
    EXPECT_EQ(holders(u"deep phrase"), u"outerinner");
    EXPECT_EQ(holders(u"root phrase"), u"");
    EXPECT_EQ(holders(u"inner"), u"");  // a group isn't held
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
        EXPECT_EQ(Walk(last), expected);
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
    EXPECT_EQ(Walk(), u" /g /good");
    EXPECT_EQ(Log.Lines.size(), 3U);
    EXPECT_TRUE(Log.Tells(u"empty.v") && Log.Tells(u"FOLDER_SELF.v") && Log.Tells(u"untitled.v"));
}

TEST_F(CommandTree, MissingFolderEmptiesTheTreeAndAnEmptyArgumentMeansTheLastOne) {
    AddPhrase("p.vellumbridge", 1);
    Tree.LoadTree(Folder.Path());
    Tree.LoadTree(Folder.Path() / "missing");
    EXPECT_TRUE(Tree.Commands().empty());
    EXPECT_EQ(Tree.NextCommandId(), 1U);
    Tree.LoadTree({});
    EXPECT_EQ(Walk(), u" /p");
}

TEST_F(CommandTree, UsageIsCountedStampedAndSaved) {
    AddPhrase("p.vellumbridge", 1);
    Tree.LoadTree(Folder.Path());
    Clock.Utc = {.Year = 2026, .Month = 11, .Day = 22, .Hour = 1, .Minute = 2, .Second = 3};
    Tree.RecordUsage(1);
    Tree.RecordUsage(1);
    Tree.RecordUsage(99);
    Saver.Flush();
    EXPECT_EQ(Folder.Read("p.vellumbridge"), CommandToXml(*Tree.FindCommand(1)));
    EXPECT_EQ(Others, 0);
    Tree.LoadTree({});
    EXPECT_EQ(Tree.Commands().at(0).UsageCount, 2);
    EXPECT_EQ(Tree.Commands().at(0).DateUsage, Clock.Utc);
}

TEST_F(CommandTree, AUseOfAPhraseThatWasEditedMeanwhileKeepsTheEditAndTells) {
    AddPhrase("p.vellumbridge", 1);
    Tree.LoadTree(Folder.Path());
    Folder.Write("p.vellumbridge",
                 "<VBRCommand UsageCount='40'><MenuName>n</MenuName><Cmd>new</Cmd></VBRCommand>");
    Tree.RecordUsage(1);
    Tree.RecordUsage(1);
    Saver.Flush();
    EXPECT_GE(Others, 1);
    Tree.LoadTree({});
    EXPECT_EQ(Tree.Commands().at(0).UsageCount, 42);
    EXPECT_EQ(Tree.Commands().at(0).Cmd, u"new");
    // The record and its file agree again.
    Others = 0;
    Tree.RecordUsage(1);
    Saver.Flush();
    EXPECT_EQ(Others, 0);
}

TEST_F(CommandTree, WhatIsNoPhraseAnyMoreIsLeftAloneWithALineEach) {
    const std::string names[] = {"gone", "text", "untitled", "cut"};
    for (const std::string& name : names) {
        AddPhrase(name + ".vellumbridge", 1);
    }
    Tree.LoadTree(Folder.Path());
    std::filesystem::remove(Folder.Path() / "gone.vellumbridge");
    Folder.Write("text.vellumbridge", "notes");
    Folder.Write("untitled.vellumbridge", "<VBRCommand/>");
    Folder.Write("cut.vellumbridge", "<VBRCommand><MenuName>n</MenuName><Cmd>a");
    for (std::uint32_t id = 1; id <= 4; ++id) {
        Tree.RecordUsage(id);
        Saver.Flush();
        EXPECT_EQ(Log.Lines.size(), id);
    }
    EXPECT_FALSE(std::filesystem::exists(Folder.Path() / "gone.vellumbridge"));
    EXPECT_EQ(Others, 1);  // the one that is gone
    for (std::uint32_t id = 1; id <= 4; ++id) {
        const VBRCommand& record = *Tree.FindCommand(id);
        EXPECT_TRUE(Log.Tells(record.FilePath.u16string())) << record.FilePath;
        // A save makes a new file, and leaves alone what it can't take for the record's.
        Tree.SaveCommand(id);
    }
    Saver.Flush();
    EXPECT_EQ(Folder.Read("text.vellumbridge"), "notes");
    EXPECT_EQ(Folder.Read("gone.vellumbridge").substr(0, 5), "<?xml");
    EXPECT_EQ(Tree.Commands().size(), 4U);
}

// Files that an editor, or a program that synchronises them, holds for a while.
class HeldStore : public NativeFileStore {
  public:
    std::atomic<bool> Held = false;

    std::optional<std::string> Read(const std::filesystem::path& path) override {
        return Held ? std::nullopt : NativeFileStore::Read(path);
    }
};

TEST_F(CommandTree, UsesOfAHeldFileCountWithALaterOneOrAtTheEnd) {
    AddPhrase("p.vellumbridge", 1);
    HeldStore store;
    CommandFiles files(store, Log);
    {
        CommandSaver saver(files);
        CVBRCommandTree tree(files, saver, Clock, Log);
        tree.LoadTree(Folder.Path());
        const auto useAndCount = [&](bool held, bool writable) {
            saver.Flush();
            store.Held = held;
            store.ReplaceError = writable ? std::nullopt : std::optional(SystemError{32, u"held"});
            tree.RecordUsage(1);
            saver.Flush();
            VBRCommand stored;
            ParseCommand(stored, Folder.Read("p.vellumbridge"));
            return stored.UsageCount;
        };
        EXPECT_EQ(useAndCount(true, true), 0);
        EXPECT_EQ(useAndCount(false, true), 2);
        EXPECT_EQ(useAndCount(false, false), 2);
        EXPECT_EQ(useAndCount(true, true), 2);
        store.Held = false;
    }
    Tree.LoadTree(Folder.Path());
    EXPECT_EQ(Tree.Commands().at(0).UsageCount, 4);
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

TEST_F(CommandTree, AFolderThatLeadsBackToOneAboveItEndsThere) {
    Add("a/b/p.vellumbridge", u"text");
    std::filesystem::create_directory_symlink(Folder.Path() / "a", Folder.Path() / "a/b/loop");
    std::filesystem::create_directory_symlink(Folder.Path() / "a/b", Folder.Path() / "again");
    EXPECT_EQ(Files(),
              (std::vector<std::u16string>{u"a/b/p.vellumbridge", u"again/p.vellumbridge"}));
    EXPECT_TRUE(Log.Tells(u"leads back"));
}

// Has one name that no path can hold, and a folder that it doesn't list.
class OddStore : public NativeFileStore {
  public:
    std::optional<SystemError> List(const std::filesystem::path& folder,
                                    std::vector<FolderEntry>& entries) override {
        if (folder.filename() == "shut") {
            return SystemError{5, u"Access denied."};
        }
        if (folder.filename() == "open") {
            entries.push_back({u"\xD800.vellumbridge", PathKind::File});
        }
        return NativeFileStore::List(folder, entries);
    }
};

TEST_F(CommandTree, WhatCannotBeListedOrNamedIsLoggedAndTheOthersLoad) {
    Add("open/p.vellumbridge", u"text");
    Add("shut/p.vellumbridge", u"text");
    OddStore store;
    CommandFiles files(store, Log);
    CVBRCommandTree tree(files, Saver, Clock, Log);
    tree.LoadTree(Folder.Path());
    EXPECT_EQ(tree.CountCommands().Total, 3U);
    ASSERT_EQ(Log.Lines.size(), 2U);
    EXPECT_NE(Log.Lines[1].find(u"shut: Access denied."), std::u16string::npos);
}

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
