// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <string_view>

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

TEST_F(PhraseFoldersOnDisk, APhraseIsLoadedAndSavedUnderNamesThatPlainCallsDoNotReach) {
    path deep = folder_.Path();
    while (deep.native().size() < 400) {
        deep = MakeFolder(deep, std::wstring(60, L'f'));
    }
    std::set<path> files = {deep / "p.vellumbridge"};
    for (const wchar_t* name : {L"end", L"end.", L"end "}) {
        files.insert(MakeFolder(folder_.Path(), name) / "p.vellumbridge");
    }
    for (const path& file : files) {
        ASSERT_FALSE(store_.Replace(file, kPhrase)) << file;
    }
    const auto countUsed = [&] {
        std::size_t used = 0;
        tree_.LoadTree(folder_.Path());
        for (std::uint32_t id = 1; id < tree_.NextCommandId(); ++id) {
            const VBRCommand& record = *tree_.FindCommand(id);
            used += files.contains(record.FilePath) && record.UsageCount == 1;
            if (!record.IsGroup()) {
                tree_.RecordUsage(id);
            }
        }
        saver_.Flush();
        return used;
    };
    EXPECT_EQ(countUsed(), 0U);
    EXPECT_EQ(countUsed(), files.size());
    EXPECT_THAT(log_.Lines, IsEmpty());
}

}  // namespace
}  // namespace vbr
