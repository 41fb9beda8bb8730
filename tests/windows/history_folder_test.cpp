// SPDX-License-Identifier: MIT
#include "history/history_folder.h"

#include <atomic>
#include <gtest/gtest.h>
#include <thread>

#include "fakes/memory_log.h"
#include "fakes/temp_folder.h"
#include "history/history_queue.h"
#include "platform/win32/win_file_store.h"
#include "platform/win32/win_stamped_files.h"

namespace vbr {
namespace {

// A program that copies and deletes in a folder that others use too.
void CopyAndDelete(const std::filesystem::path& path, char16_t name) {
    MemoryLog log;
    WinFileStore store;
    WinStampedFiles files;
    HistoryFolder folder(path, store, files, log);
    CCHQueue queue;
    const auto save = [&] {
        return folder.Save(queue.TakeFileChanges(), queue.CopyUnsaved(),
                           [&queue](const CCHItem& saved) { queue.NoteSaved(saved); });
    };
    for (std::uint16_t i = 0; i < 40; ++i) {
        auto item =
            std::make_unique<CCHItem>(CHF_UNICODE_TEXT, 0, SystemTime{2026, 1, 1, 1, 1, 1, i});
        item->SetData(TextBytes(std::u16string(i + 1U, name)));
        queue.Add(std::move(item), 10);
        save();
    }
    while (!save()) {
    }
}

TEST(HistoryFolder, ProgramsThatUseOneFolderAtOnceLoseNothing) {
    TempFolder temp;
    const std::filesystem::path path = temp.Path() / "ClipboardHistory";
    std::vector<std::thread> programs;
    for (const char16_t name : {u'a', u'b', u'c'}) {
        programs.emplace_back([&path, name] { CopyAndDelete(path, name); });
    }
    for (std::thread& program : programs) {
        program.join();
    }
    MemoryLog log;
    WinFileStore store;
    WinStampedFiles files;
    CCHQueue queue;
    EXPECT_TRUE(HistoryFolder(path, store, files, log).Load(queue));
    EXPECT_EQ(queue.GetCount(), 30U);
    for (std::size_t i = 0; i < queue.GetCount(); ++i) {
        EXPECT_GT(queue.GetItem(i)->WideText().size(), 30U);
    }
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(path), {}), 60);
}

}  // namespace
}  // namespace vbr
