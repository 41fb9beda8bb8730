// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>

#include "fakes/fake_clock.h"
#include "fakes/memory_log.h"
#include "fakes/native_file_store.h"
#include "fakes/temp_folder.h"
#include "phrases/command_tree.h"

namespace vbr {

// A phrase tree over real files in a folder of the test's own.
struct PhraseTree {
    TempFolder Folder;
    NativeFileStore Store;
    FakeClock Clock;
    MemoryLog Log;
    CommandFiles Files{Store, Log};
    std::atomic<int> Others = 0;  // uses that found the file to say something else
    CommandSaver Saver{Files, [this] { ++Others; }};
    CVBRCommandTree Tree{Files, Saver, Clock, Log};

    // Writes a phrase, titled as its file.
    void Write(const std::string& path, VBRCommand record = {}) {
        record.Text = std::filesystem::path(path).stem().u16string();
        Folder.Write(path, CommandToXml(record));
    }
    // The same, and loads the tree again.
    void Add(const std::string& path, std::u16string_view text,
             std::int32_t dataType = kDataTypeText, std::uint32_t flagsMenu = 0) {
        VBRCommand record{.Cmd = std::u16string(text), .FlagsMenu = flagsMenu};
        record.DataType = dataType;
        // A use that is still being saved would count in the new file.
        Saver.Flush();
        Write(path, std::move(record));
        Tree.LoadTree(Folder.Path());
    }
};

}  // namespace vbr
