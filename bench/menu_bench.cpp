// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>
#include <string>

#include "base/text.h"
#include "fakes/fake_menu_history.h"
#include "fakes/macro_desk.h"
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

FakeMenuHistory MakeHistory() {
    FakeMenuHistory history;
    for (int i = 0; i < kHistoryItems; ++i) {
        history.Items.push_back({Concat(u"A clip with the number ", i, u"\r\nand a second line")});
    }
    return history;
}

const MacroInput kInput{u"a few selected words", u"a text from the clipboard", kEnglish};

void BuildMenu(const MacroDesk& desk, const std::vector<VBRCommand>& tree) {
    FakeMenuHistory history = MakeHistory();
    PhraseMenu menu;
    AddPhraseRegion(tree, {.Input = kInput}, desk.Items, menu);
    AddHistoryRegion(history, {}, desk.Texts, menu);
    AddExtraCommands({true, true, true}, true, kInput.SelText, desk.Texts, menu);
    benchmark::DoNotOptimize(menu.data());
}

// The whole menu against the captions and tips that stand in it.
void MenuOfAThousandPhrases(benchmark::State& state) {
    const MacroDesk desk;
    const std::vector<VBRCommand> tree = MakeTree(1000);
    MeasureCpuRatio(
        state, 2, [&] { BuildMenu(desk, tree); },
        [&] {
            for (const VBRCommand& group : tree) {
                for (const VBRCommand& phrase : *group.Commands) {
                    benchmark::DoNotOptimize(desk.Previews.BuildMenuTexts(phrase, kInput));
                }
            }
            FakeMenuHistory history = MakeHistory();
            for (std::size_t i = 0; i < history.GetCount(); ++i) {
                benchmark::DoNotOptimize(UncutHistoryCaption(history, i));
                benchmark::DoNotOptimize(HistoryTip(history, i, desk.Texts));
            }
        });
}
BENCHMARK(MenuOfAThousandPhrases)->Iterations(Rounds(501))->UseManualTime();

// Ten times the phrases take at most twelve times as long.
void MenuGrowsWithItsPhrases(benchmark::State& state) {
    const MacroDesk desk;
    const std::vector<VBRCommand> few = MakeTree(1000);
    const std::vector<VBRCommand> many = MakeTree(10000);
    MeasureCpuRatio(
        state, 12, [&] { BuildMenu(desk, many); }, [&] { BuildMenu(desk, few); });
}
BENCHMARK(MenuGrowsWithItsPhrases)->Iterations(Rounds(101))->UseManualTime();

}  // namespace
}  // namespace vbr::bench
