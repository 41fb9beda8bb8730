// SPDX-License-Identifier: MIT
#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

#include "fakes/phrase_tree.h"

namespace vbr {
namespace {

class PhraseFolders : public testing::Test, protected PhraseTree {
  protected:
    // The files of all phrases below the folder, in the tree's order.
    std::vector<std::u16string> Files() {
        Tree.LoadTree(Folder.Path());
        std::vector<std::u16string> files;
        Collect(Tree.Commands(), files);
        std::sort(files.begin(), files.end());
        return files;
    }

  private:
    void Collect(const std::vector<VBRCommand>& list, std::vector<std::u16string>& files) {
        for (const VBRCommand& record : list) {
            if (record.IsGroup()) {
                Collect(*record.Commands, files);
            } else {
                files.push_back(record.FilePath.lexically_relative(Folder.Path()).u16string());
            }
        }
    }
};

TEST_F(PhraseFolders, AFolderThatLeadsBackToOneAboveItEndsThere) {
    Add("a/b/p.vellumbridge", u"text");
    std::filesystem::create_directory_symlink(Folder.Path() / "a", Folder.Path() / "a/b/loop");
    std::filesystem::create_directory_symlink(Folder.Path() / "a/b", Folder.Path() / "again");
    EXPECT_EQ(Files(),
              (std::vector<std::u16string>{u"a/b/p.vellumbridge", u"again/p.vellumbridge"}));
    EXPECT_TRUE(std::all_of(Log.Lines.begin(), Log.Lines.end(), [](const std::u16string& line) {
        return line.find(u"leads back") != line.npos;
    }));
    EXPECT_EQ(Log.Lines.size(), 2U);
}

TEST_F(PhraseFolders, OddNamesAreNamesLikeOthers) {
    const std::vector<std::u16string> names = {u"Sign/p.vellumbridge", u"end ./p.vellumbridge",
                                               u"end./p.vellumbridge", u"end/ .vellumbridge",
                                               u"sign/p.vellumbridge"};
    for (const std::u16string& name : names) {
        Folder.Write(name, "<VBRCommand><MenuName>n</MenuName></VBRCommand>");
    }
    EXPECT_EQ(Files(), names);
    EXPECT_TRUE(Log.Lines.empty());
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

TEST_F(PhraseFolders, WhatCannotBeListedOrNamedIsLoggedAndTheOthersLoad) {
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

}  // namespace
}  // namespace vbr
