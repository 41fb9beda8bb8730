// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

#include "fakes/fake_clock.h"
#include "fakes/memory_log.h"
#include "fakes/temp_folder.h"
#include "phrases/command_tree.h"
#include "platform/win32/win_file_store.h"

namespace vbr {
namespace {

using std::filesystem::path;
using testing::IsEmpty;

const std::string kPhrase = "<VBRCommand><MenuName>n</MenuName><Cmd>text</Cmd></VBRCommand>";

class PhraseFoldersOnDisk : public testing::Test {
  protected:
    ~PhraseFoldersOnDisk() override {
        saver_.Flush();
        Remove(Verbatim(folder_.Path()));
    }

    // The tests' own way to paths that plain calls don't reach.
    static std::wstring Verbatim(const path& file) { return L"\\\\?\\" + file.native(); }

    path MakeFolder(const path& parent, const std::wstring& name) const {
        EXPECT_TRUE(CreateDirectoryW((Verbatim(parent) + L"\\" + name).c_str(), nullptr));
        return parent / name;
    }

    void Load() { tree_.LoadTree(folder_.Path()); }

    TempFolder folder_;
    WinFileStore store_;
    MemoryLog log_;
    FakeClock clock_;
    CommandFiles files_{store_, log_};
    CommandSaver saver_{files_};
    CVBRCommandTree tree_{files_, saver_, clock_, log_};

  private:
    static void Remove(const std::wstring& folder) {
        WIN32_FIND_DATAW entry{};
        const HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &entry);
        do {
            const std::wstring_view name = entry.cFileName;
            const std::wstring full = folder + L"\\" + entry.cFileName;
            if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
                DeleteFileW(full.c_str());
            } else if (name != L"." && name != L"..") {
                Remove(full);
            }
        } while (FindNextFileW(search, &entry));
        FindClose(search);
        RemoveDirectoryW(folder.c_str());
    }
};

TEST_F(PhraseFoldersOnDisk, APhraseBeyondTheOldPathLimitLoadsAndIsSaved) {
    path folder = folder_.Path();
    while (folder.native().size() < 400) {
        folder = MakeFolder(folder, std::wstring(60, L'f'));
    }
    const path file = folder / "p.vellumbridge";
    ASSERT_FALSE(store_.Replace(file, kPhrase));
    Load();
    const auto id = tree_.NextCommandId() - 1;
    ASSERT_NE(tree_.FindCommand(id), nullptr);
    EXPECT_EQ(tree_.FindCommand(id)->FilePath, file);
    tree_.RecordUsage(id);
    saver_.Flush();
    Load();
    EXPECT_EQ(tree_.FindCommand(id)->UsageCount, 1);
    EXPECT_EQ(tree_.FindCommand(id)->Cmd, u"text");
    // A record without a file finds the name taken there too.
    tree_.FindCommand(id)->Text = u"p";
    tree_.FindCommand(id)->FilePath.clear();
    tree_.SaveCommand(id);
    EXPECT_EQ(tree_.FindCommand(id)->FilePath, folder / "p2.vellumbridge");
    EXPECT_THAT(log_.Lines, IsEmpty());
}

TEST_F(PhraseFoldersOnDisk, ANameThatEndsInAPointOrBlankIsItsOwn) {
    for (const wchar_t* name : {L"end", L"end.", L"end "}) {
        const path folder = MakeFolder(folder_.Path(), name);
        ASSERT_FALSE(store_.Replace(folder / "p.vellumbridge", kPhrase));
    }
    Load();
    EXPECT_EQ(tree_.CountCommands().Total, 6U);
    ASSERT_EQ(tree_.Commands().size(), 3U);
    for (const VBRCommand& group : tree_.Commands()) {
        const std::vector<VBRCommand>& phrases = *group.Commands;
        ASSERT_EQ(phrases.size(), 1U) << group.FilePath;
        tree_.RecordUsage(phrases[0].CMDID);
    }
    saver_.Flush();
    Load();
    for (const VBRCommand& group : tree_.Commands()) {
        EXPECT_EQ(group.Commands->at(0).UsageCount, 1) << group.FilePath;
    }
    EXPECT_THAT(log_.Lines, IsEmpty());
}

}  // namespace
}  // namespace vbr
