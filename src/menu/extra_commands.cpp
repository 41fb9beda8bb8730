// SPDX-License-Identifier: MIT
#include "menu/extra_commands.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "base/text.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

constexpr std::size_t kSelectionInLabel = 40;

struct ExtraCommand {
    std::int32_t Result;
    int Command;
    int Label;
    int Tip;
};

constexpr ExtraCommand kEditPhrases = {kResultEditPhrases, kCmdEditPhrases, kStrEditMenu,
                                       kStrEditMenuHint};
constexpr ExtraCommand kSelection = {kResultSelectionIntoPhrase, kCmdAddSelectionAsPhrase,
                                     kStrSelectionIntoPhrase, kCmdAddSelectionAsPhrase};
constexpr ExtraCommand kSupport = {kResultSupport, kCmdSupport, kStrTechnicalSupport, kCmdSupport};
constexpr ExtraCommand kCommands[] = {kEditPhrases, kSelection, kSupport};

PhraseMenuItem& AddCommand(PhraseMenu& menu, const ExtraCommand& command, const Strings& strings) {
    PhraseMenuItem& item = menu.emplace_back();
    item.Info.CommandId = static_cast<std::uint32_t>(command.Command);
    item.Info.Subject = {MenuSubjectKind::ExtraCommand, item.Info.CommandId};
    item.Info.Label = strings.LoadString(command.Label);
    item.Info.Tip = strings.LoadString(command.Tip);
    return item;
}

}  // namespace

std::optional<std::int32_t> ResultOfExtraCommand(std::uint32_t id) {
    const auto found =
        std::find_if(std::begin(kCommands), std::end(kCommands), [id](const ExtraCommand& command) {
            return static_cast<std::uint32_t>(command.Command) == id;
        });
    return found == std::end(kCommands) ? std::nullopt : std::optional(found->Result);
}

void AddExtraCommands(const ExtMenuCommands& shown, bool historyShown,
                      std::u16string_view selectedText, const Strings& strings, PhraseMenu& menu) {
    AddSeparator(menu, historyShown ? std::u16string()
                                    : Concat(strings.LoadString(kStrClipboardHistory), u" [",
                                             strings.LoadString(kStrSkipped), u"]"));
    if (shown.EditSetting) {
        AddCommand(menu, kEditPhrases, strings);
    }
    if (shown.SaveSelAsPhrase) {
        PhraseMenuItem& item = AddCommand(menu, kSelection, strings);
        if (!selectedText.empty()) {
            item.Info.Label = MenuLabel(
                Concat(item.Info.Label, u" [", CutUnits(selectedText, kSelectionInLabel), u"]…"));
        }
        item.Info.Tip += Concat(u" [", selectedText, u"]");
        item.Grayed = selectedText.empty();
    }
    if (shown.Support) {
        if (shown.EditSetting || shown.SaveSelAsPhrase) {
            AddSeparator(menu, strings.LoadString(kStrVisitToUs));
        }
        AddCommand(menu, kSupport, strings);
    }
    if (menu.back().IsSeparator()) {
        menu.pop_back();
    }
}

}  // namespace vbr
