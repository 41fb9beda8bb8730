// SPDX-License-Identifier: MIT
#include <array>
#include <benchmark/benchmark.h>
#include <string>

#include "base/text.h"
#include "fakes/macro_fixture.h"
#include "fakes/menu_history_fixture.h"
#include "menu/extra_commands.h"
#include "menu/history_region.h"
#include "menu/phrase_region.h"
#include "ratio.h"

namespace vbr::bench {
namespace {

constexpr std::size_t kGroups = 50;
constexpr int kHistoryItems = 30;

// Groups that hold that many phrases together, half of them with a macro.
std::vector<VBRCommand> MakeTree(std::size_t phrases) {
    std::vector<VBRCommand> tree(kGroups);
    std::uint32_t id = 0;
    for (VBRCommand& group : tree) {
        group.Text = u"A group of phrases";
        group.CMDID = ++id;
        group.Commands = std::make_unique<std::vector<VBRCommand>>(phrases / kGroups);
        for (VBRCommand& phrase : *group.Commands) {
            phrase.CMDID = ++id;
            phrase.Text = Concat(u"A phrase with the number ", id);
            phrase.Cmd = id % 2 == 0 ? u"Dear Sir or Madam,\r\n\r\nthank you for your message.\r\n"
                                     : u"Thank you for %SELECTED_TEXT% of %DATE%.\r\n";
        }
    }
    return tree;
}

// Clips whose captions and tips are yet to be made.
QueueHistory& FreshHistory(bool withLongLine = false) {
    static std::array<MenuHistoryFixture, 2> fixtures;
    MenuHistoryFixture& clips = fixtures[withLongLine ? 1 : 0];
    for (int i = static_cast<int>(clips.Queue.GetCount()); i < kHistoryItems; ++i) {
        const bool isLong = withLongLine && i == 3;
        clips.AddClip(isLong ? std::u16string(25U << 20, u'x')
                             : Concat(u"A clip with the number ", i, u"\r\nand a second line"));
    }
    for (std::size_t i = 0; i < clips.Queue.GetCount(); ++i) {
        clips.History.MenuCaption(i).clear();
        clips.History.MenuTip(i).clear();
    }
    return clips.History;
}

const MacroInput kInput{u"a few selected words", u"a text from the clipboard", kEnglish};

void BuildMenu(const MacroFixture& fixture, const std::vector<VBRCommand>& tree,
               bool withLongLine = false) {
    QueueHistory& history = FreshHistory(withLongLine);
    PhraseMenu menu;
    AddPhraseRegion(tree, {.Input = kInput}, fixture.Items, menu);
    AddHistoryRegion(history, {}, fixture.Texts, menu);
    AddExtraCommands({true, true, true}, true, kInput.SelText, fixture.Texts, menu);
    benchmark::DoNotOptimize(menu.data());
}

// The whole menu against the captions and tips that stand in it.
void MenuOfAThousandPhrases(benchmark::State& state) {
    const MacroFixture fixture;
    const std::vector<VBRCommand> tree = MakeTree(1000);
    MeasureCpuRatio(
        state, 2, [&] { BuildMenu(fixture, tree); },
        [&] {
            for (const VBRCommand& group : tree) {
                for (const VBRCommand& phrase : *group.Commands) {
                    benchmark::DoNotOptimize(fixture.Previews.BuildMenuTexts(phrase, kInput));
                }
            }
            QueueHistory& history = FreshHistory();
            for (std::size_t i = 0; i < history.GetCount(); ++i) {
                benchmark::DoNotOptimize(UncutHistoryCaption(history, i));
                benchmark::DoNotOptimize(HistoryTip(history, i, fixture.Texts));
            }
        });
}
BENCHMARK(MenuOfAThousandPhrases)->Iterations(Rounds(501))->UseManualTime();

// Ten times the phrases take at most twelve times as long.
void MenuGrowsWithItsPhrases(benchmark::State& state) {
    const MacroFixture fixture;
    const std::vector<VBRCommand> few = MakeTree(1000);
    const std::vector<VBRCommand> many = MakeTree(10000);
    MeasureCpuRatio(
        state, 12, [&] { BuildMenu(fixture, many); }, [&] { BuildMenu(fixture, few); });
}
BENCHMARK(MenuGrowsWithItsPhrases)->Iterations(Rounds(101))->UseManualTime();

// A clip of 50 MB in one line adds nothing to the menu's time.
void MenuWithALongLine(benchmark::State& state) {
    const MacroFixture fixture;
    const std::vector<VBRCommand> tree = MakeTree(100);
    MeasureCpuRatio(
        state, 1.5, [&] { BuildMenu(fixture, tree, true); }, [&] { BuildMenu(fixture, tree); });
}
BENCHMARK(MenuWithALongLine)->Iterations(Rounds(201))->UseManualTime();

}  // namespace
}  // namespace vbr::bench
