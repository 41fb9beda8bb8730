// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>
#include <string>

#include "fakes/fake_clock.h"
#include "fakes/fake_locale.h"
#include "fakes/fake_system_info.h"
#include "fakes/memory_log.h"
#include "macros/macro_engine.h"
#include "ratio.h"

namespace vbr::bench {
namespace {

constexpr int kRepeats = 1000;

// A text without a macro costs no more than finding that it has no percent sign.
void TextWithoutMacro(benchmark::State& state) {
    const FakeClock clock;
    const FakeLocale locale;
    const FakeSystemInfo system;
    const FakeKeyboardLayouts layouts;
    MemoryLog log;
    const MacroValues values(clock, locale, system);
    const MacroEngine engine(values, layouts, locale, log);
    std::u16string text(1000, u'x');
    MeasureRatio(
        state, 1.5,
        [&] {
            for (int i = 0; i < kRepeats; ++i) {
                benchmark::DoNotOptimize(engine.ExpandMacros(text, {}).Replaced);
            }
        },
        [&] {
            for (int i = 0; i < kRepeats; ++i) {
                benchmark::DoNotOptimize(text.find(u'%'));
                benchmark::ClobberMemory();
            }
        });
}
BENCHMARK(TextWithoutMacro)->Iterations(101)->UseManualTime();

}  // namespace
}  // namespace vbr::bench
