// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>
#include <filesystem>
#include <string>
#include <tinyxml.h>
#include <vector>

#include "fakes/fake_clock.h"
#include "fakes/memory_log.h"
#include "fakes/native_file_store.h"
#include "fakes/temp_folder.h"
#include "phrases/command_tree.h"
#include "ratio.h"

namespace vbr::bench {
namespace {

constexpr int kPhrases = 1000;
constexpr int kFolders = 20;

void WritePhrases(const TempFolder& folder) {
    for (int i = 0; i < kPhrases; ++i) {
        VBRCommand record;
        record.Text = u"A phrase of usual length";
        record.Cmd = u"Dear Sir or Madam,\r\n\r\nthank you for your message of %DATE%.\r\n";
        record.ToolTipText = u"An answer";
        record.SortID = static_cast<std::uint32_t>(kPhrases - i);
        folder.Write("group" + std::to_string(i % kFolders) + "/phrase" + std::to_string(i) +
                         ".vellumbridge",
                     CommandToXml(record));
    }
}

// What any load must do: find the files, read them, parse them.
void ReadAndParse(const std::filesystem::path& folder, FileStore& store) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (!entry.is_directory()) {
            const std::string bytes = *store.Read(entry.path());
            TiXmlDocument document;
            document.Parse(bytes.c_str(), nullptr, TIXML_ENCODING_UTF8);
            benchmark::DoNotOptimize(document.RootElement());
        }
    }
}

// Loading the tree costs little more than reading and parsing the same files.
void LoadPhrases(benchmark::State& state) {
    const TempFolder folder;
    WritePhrases(folder);
    NativeFileStore store;
    MemoryLog log;
    const FakeClock clock;
    CommandFiles files(store, log);
    CommandSaver saver(files);
    CVBRCommandTree tree(files, saver, clock, log);
    MeasureRatio(
        state, 1.5, [&] { tree.LoadTree(folder.Path()); },
        [&] { ReadAndParse(folder.Path(), store); });
}
BENCHMARK(LoadPhrases)->Iterations(31)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vbr::bench
