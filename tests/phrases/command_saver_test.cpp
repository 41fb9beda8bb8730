// SPDX-License-Identifier: MIT
#include "phrases/command_saver.h"

#include <gtest/gtest.h>

#include "fakes/memory_log.h"
#include "fakes/native_file_store.h"
#include "fakes/temp_folder.h"

namespace vbr {
namespace {

TEST(CommandSaver, ItsEndLeavesEachFileAsItWasSavedLast) {
    TempFolder folder;
    NativeFileStore store;
    MemoryLog log;
    CommandFiles files(store, log);
    std::string last;
    {
        CommandSaver saver(files);
        for (int use = 1; use <= 20; ++use) {
            VBRCommand record;
            record.FilePath = folder.Path() / "p.vellumbridge";
            record.UsageCount = use;
            saver.SaveCommandAsync(record);
            last = CommandToXml(record);
        }
    }
    EXPECT_EQ(folder.Read("p.vellumbridge"), last);
}

}  // namespace
}  // namespace vbr
