// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>
#include <string>

#include "base/text.h"
#include "fakes/macro_fixture.h"
#include "ratio.h"

namespace vbr::bench {
namespace {

constexpr int kRepeats = 1000;
constexpr std::size_t kPhrases = 1000;

// A text without a macro costs no more than finding that it has no percent sign.
void TextWithoutMacro(benchmark::State& state) {
    const MacroFixture fixture;
    std::u16string text(1000, u'x');
    MeasureCpuRatio(
        state, 1.5,
        [&] {
            for (int i = 0; i < kRepeats; ++i) {
                benchmark::DoNotOptimize(fixture.Engine.ExpandMacros(text, {}).Replaced);
            }
        },
        [&] {
            for (int i = 0; i < kRepeats; ++i) {
                benchmark::DoNotOptimize(FindText(text, u"%"));
                benchmark::ClobberMemory();
            }
        });
}
BENCHMARK(TextWithoutMacro)->Iterations(Rounds(1001))->UseManualTime();

// Captions and tips of a menu against copying the texts they are made from.
void MenuTexts(benchmark::State& state, std::u16string_view text, double bound) {
    const MacroFixture fixture;
    const MacroInput input{u"a few selected words", u"a text from the clipboard", kEnglish};
    std::vector<VBRCommand> phrases(kPhrases);
    for (VBRCommand& phrase : phrases) {
        phrase.Text = u"A phrase of usual length";
        phrase.Cmd = text;
    }
    MeasureCpuRatio(
        state, bound,
        [&] {
            for (const VBRCommand& phrase : phrases) {
                benchmark::DoNotOptimize(fixture.Previews.BuildMenuTexts(phrase, input));
            }
        },
        [&] {
            for (const VBRCommand& phrase : phrases) {
                std::u16string title = phrase.Text;
                std::u16string cmd = phrase.Cmd;
                benchmark::DoNotOptimize(title.data());
                benchmark::DoNotOptimize(cmd.data());
                benchmark::ClobberMemory();
            }
        });
}

void MenuTextsWithoutMacros(benchmark::State& state) {
    MenuTexts(state, u"Dear Sir or Madam,\r\n\r\nthank you for your kind message of today.\r\n",
              20);
}
BENCHMARK(MenuTextsWithoutMacros)->Iterations(Rounds(1001))->UseManualTime();

void MenuTextsWithMacros(benchmark::State& state) {
    MenuTexts(state, u"Dear Sir or Madam,\r\n\r\nthank you for %SELECTED_TEXT% of %DATE%.\r\n", 30);
}
BENCHMARK(MenuTextsWithMacros)->Iterations(Rounds(1001))->UseManualTime();

}  // namespace
}  // namespace vbr::bench
