// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>
#include <string>
#include <tinyxml.h>

#include "exchange/interchange_area.h"
#include "fakes/fake_shared_memory.h"
#include "fakes/memory_log.h"
#include "ratio.h"

namespace vbr::bench {
namespace {

constexpr std::u16string_view kArea = u"area";
constexpr std::size_t kSize = 400'000;
constexpr double kBound = 3;

// Parsing a document and printing it again.
void ParseAndPrint(const std::string& text) {
    TiXmlDocument document;
    document.Parse(text.c_str(), nullptr, TIXML_ENCODING_UTF8);
    TiXmlPrinter printer;
    document.Accept(&printer);
    benchmark::DoNotOptimize(printer.Str().data());
}

struct Area {
    FakeSharedMemory Memory;
    MemoryLog Log;
    InterchangeArea Interchange{Memory, kArea, Log};
    std::string& Text() { return Memory.Blocks[std::u16string(kArea)]; }
};

void ReadQuery(benchmark::State& state) {
    Area area;
    std::string lines;
    while (lines.size() < kSize) {
        lines += "A line of a selection &amp; its end.&#x0D;&#x0A;";
    }
    area.Text() =
        "<WPQuery POINT_X=\"1\"><AppPath>C:\\a.exe</AppPath><SelText StateSelText=\"2\">" + lines +
        "</SelText></WPQuery>";
    MeasureCpuRatio(
        state, kBound,
        [&] {
            WPQuery query;
            benchmark::DoNotOptimize(area.Interchange.ReadQuery(query));
        },
        [&] { ParseAndPrint(area.Text()); });
}
BENCHMARK(ReadQuery)->Iterations(Rounds(51))->UseManualTime();

void WriteAnswer(benchmark::State& state) {
    Area area;
    WPAnswer answer;
    for (std::size_t size = 0; size < kSize; size += 180) {
        answer.Items.push_back(
            {.Text = u"A phrase of usual length", .ToolTipText = u"What it gives", .CMDID = 7});
    }
    area.Interchange.WriteAnswer(answer);
    const std::string written = area.Text();
    MeasureCpuRatio(
        state, kBound, [&] { benchmark::DoNotOptimize(area.Interchange.WriteAnswer(answer)); },
        [&] { ParseAndPrint(written); });
}
BENCHMARK(WriteAnswer)->Iterations(Rounds(51))->UseManualTime();

}  // namespace
}  // namespace vbr::bench
