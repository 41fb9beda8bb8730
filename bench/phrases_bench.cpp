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

void WritePhrases(const TempFolder& folder, int phrases, int folders) {
    for (int i = 0; i < phrases; ++i) {
        VBRCommand record;
        record.Text = u"A phrase of usual length";
        record.Cmd = u"Dear Sir or Madam,\r\n\r\nthank you for your message of %DATE%.\r\n";
        record.ToolTipText = u"An answer";
        record.SortID = static_cast<std::uint32_t>(phrases - i);
        folder.Write(
            "group" + std::to_string(i % folders) + "/phrase" + std::to_string(i) + ".vellumbridge",
            CommandToXml(record));
    }
}

// A tree with what it is read from.
struct Phrases {
    Phrases(int phrases, int folders) { WritePhrases(Folder, phrases, folders); }

    TempFolder Folder;
    NativeFileStore Store;
    MemoryLog Log;
    FakeClock Clock;
    CommandFiles Files{Store, Log};
    CommandSaver Saver{Files};
    CVBRCommandTree Tree{Files, Saver, Clock, Log};
};

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
    Phrases phrases(10'000, 200);
    MeasureCpuRatio(
        state, 1.5, [&] { phrases.Tree.LoadTree(phrases.Folder.Path()); },
        [&] { ReadAndParse(phrases.Folder.Path(), phrases.Store); });
}
BENCHMARK(LoadPhrases)->Iterations(Rounds(11))->UseManualTime()->Unit(benchmark::kMillisecond);

// Ten times the phrases cost about ten times the time.
void LoadGrowth(benchmark::State& state) {
    Phrases many(10'000, 200);
    Phrases few(1'000, 20);
    MeasureCpuRatio(
        state, 12, [&] { many.Tree.LoadTree(many.Folder.Path()); },
        [&] { few.Tree.LoadTree(few.Folder.Path()); });
}
BENCHMARK(LoadGrowth)->Iterations(Rounds(11))->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vbr::bench
