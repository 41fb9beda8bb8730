// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "base/text.h"
#include "fakes/memory_log.h"
#include "fakes/temp_folder.h"
#include "phrases/command_file.h"
#include "phrases/command_saver.h"
#include "platform/win32/win_error_text.h"
#include "platform/win32/win_file_store.h"

namespace vbr {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CommandFilesOnDiskTest : public testing::Test {
  protected:
    TempFolder folder_;
    WinFileStore store_;
    MemoryLog log_;
    CommandFiles files_{store_, log_};
};

TEST_F(CommandFilesOnDiskTest, AFailedWriteTellsPathErrorAndRecord) {
    VBRCommand record;
    record.Text = u"Greeting";
    const std::filesystem::path path = folder_.Path() / "no such folder" / "a.vellumbridge";
    const std::u16string expected = Concat(u"ERROR: code ", ERROR_PATH_NOT_FOUND, u", ",
                                           WinErrorText().TextOf(ERROR_PATH_NOT_FOUND));
    int calls = 0;
    EXPECT_FALSE(files_.WriteCommandFile(
        record, path,
        [&](const std::filesystem::path& failed, std::u16string_view error, const VBRCommand& of) {
            ++calls;
            EXPECT_EQ(failed, path);
            EXPECT_EQ(error, expected);
            EXPECT_EQ(&of, &record);
        }));
    EXPECT_EQ(calls, 1);
    EXPECT_THAT(log_.Lines, ElementsAre(expected));
}

TEST_F(CommandFilesOnDiskTest, TheLastOfManySavesIsWhatTheFileHolds) {
    constexpr int kSaves = 200;
    VBRCommand record;
    record.Text = u"Greeting";
    record.FilePath = folder_.Path() / u"Привет.vellumbridge";
    {
        CommandSaver saver(files_);
        for (int i = 1; i <= kSaves; ++i) {
            // Texts of falling length: what is left of a longer one would show.
            record.Cmd = std::u16string(static_cast<std::size_t>(kSaves - i) * 10, u'x');
            record.UsageCount = i;
            saver.SaveCommandAsync(record);
        }
    }
    VBRCommand read;
    EXPECT_EQ(files_.ReadCommandFile(read, record.FilePath), CommandReadResult::Ok);
    EXPECT_EQ(read.UsageCount, kSaves);
    EXPECT_EQ(read.Cmd, u"");
    EXPECT_THAT(log_.Lines, IsEmpty());
}

}  // namespace
}  // namespace vbr
