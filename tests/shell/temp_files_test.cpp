// SPDX-License-Identifier: MIT
#include "shell/temp_files.h"

#include <gtest/gtest.h>

#include "fakes/memory_log.h"
#include "fakes/temp_folder.h"

namespace vbr {
namespace {

TEST(TempFiles, FilesGoAtTheEndButNoFolders) {
    const TempFolder folder;
    folder.Write("plain.txt", "x");
    folder.Write("locked.txt", "x");
    folder.Write("sub/kept.txt", "x");
    std::filesystem::permissions(folder.Path() / "locked.txt", std::filesystem::perms::owner_read);
    TempFileList list;
    for (const char* name : {"plain.txt", "locked.txt", "sub", "missing.txt"}) {
        list.Add(folder.Path() / name);
    }
    MemoryLog log;
    EXPECT_EQ(list.DeleteAll(log), 2U);
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / "plain.txt"));
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / "locked.txt"));
    EXPECT_TRUE(std::filesystem::exists(folder.Path() / "sub/kept.txt"));
    ASSERT_EQ(log.Lines.size(), 5U);
    EXPECT_EQ(log.Lines[0], Concat(u"Delete temp file on exit [",
                                   (folder.Path() / "plain.txt").u16string(), u"]"));
    EXPECT_TRUE(log.Lines[3].starts_with(u"FAIL on delete temp file on exit ["));
    EXPECT_EQ(log.Lines[4], u"Delete temp files on exit. Deleted 2 from 4");
    EXPECT_EQ(list.DeleteAll(log), 0U);
    EXPECT_EQ(log.Lines.back(), u"No files for deletion on exit");
}

}  // namespace
}  // namespace vbr
