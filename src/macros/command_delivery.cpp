// SPDX-License-Identifier: MIT
#include "macros/command_delivery.h"

namespace vbr {
namespace {

// The program's own changes of the clipboard, for as long as this lives.
class OwnCopy {
  public:
    explicit OwnCopy(DeliveryHost& host) : host_(host) { host_.BeginOwnCopy(); }
    ~OwnCopy() { host_.EndOwnCopy(); }
    OwnCopy(const OwnCopy&) = delete;
    OwnCopy& operator=(const OwnCopy&) = delete;

  private:
    DeliveryHost& host_;
};

}  // namespace

DeliverResult CommandDelivery::DeliverCommand(std::uint32_t id, WindowHandle window,
                                              const DeliveryContext& context) {
    ResolvedCommand command = ResolveCommand(id);
    if (command.Kind == DeliverResult::Nothing) {
        parts_.Host.RestoreClipboard();
        return command.Kind;
    }
    const bool isPhrase = command.Kind == DeliverResult::Phrase;
    const std::filesystem::path file =
        isPhrase ? parts_.Tree.FindCommand(id)->FilePath : std::filesystem::path();
    const Lcid layout = context.MaySwitchLayout ? parts_.Macros.StripLayoutMacros(command.Text) : 0;
    const CVBRActionContext actionContext{window, context.ClipboardText, context.SelText,
                                          command.DataType, context.Language};
    ActionList actions;
    parts_.Runner.BuildActions(actionContext, command.Text, actions);
    SwitchLayout(layout, actionContext);
    if (!actions.empty()) {
        parts_.Host.PlayEventSound(command.DataType == kDataTypeExec
                                       ? DeliverySound::ProgramLaunched
                                       : DeliverySound::TextInserted);
        const OwnCopy ownCopy(parts_.Host);
        if (parts_.Runner.RunActions(actionContext, actions) && isPhrase && !CountUse(id, file)) {
            return DeliverResult::Handled;
        }
    }
    if (!isPhrase) {
        parts_.Delivery.CopyToClipboard(command.DataType == kDataTypeText, command.Text, layout);
    }
    return command.Kind;
}

ResolvedCommand CommandDelivery::ResolveCommand(std::uint32_t id) const {
    const VBRCommand* record = parts_.Tree.FindCommand(id);
    if (record && !record->IsGroup()) {
        return {DeliverResult::Phrase, record->Cmd, record->DataType};
    }
    if (!record && id >= kFirstHistoryItem) {
        if (auto clip = parts_.Host.HistoryItem(id - kFirstHistoryItem)) {
            return {DeliverResult::HistoryItem, std::move(clip->Text), clip->DataType};
        }
    }
    return {};
}

void CommandDelivery::SwitchLayout(Lcid layout, const CVBRActionContext& context) {
    if (layout != 0 && layout != context.Language && parts_.Layouts.IsInstalled(layout)) {
        parts_.Layouts.SwitchKeyboardLayout(layout, context.TargetWindow);
    }
}

// A prompt leaves time for the phrases to be read again, which gives the ids anew.
bool CommandDelivery::CountUse(std::uint32_t id, const std::filesystem::path& file) {
    const VBRCommand* record = parts_.Tree.FindCommand(id);
    if (!record || record->FilePath != file) {
        parts_.DeliveryLog.Write(u"The phrases were read again, a use is not counted");
        return false;
    }
    parts_.Tree.RecordUsage(id);
    return true;
}

}  // namespace vbr
