// SPDX-License-Identifier: MIT
#include "macros/command_delivery.h"

namespace vbr {

bool CommandDelivery::DeliverPhrase(const std::filesystem::path& file, WindowHandle window,
                                    const DeliveryContext& context) {
    const VBRCommand* record = with_.Tree.FindByFile(file);
    if (!record) {
        return false;
    }
    ClipText command{record->DataType, record->Cmd};
    const Lcid layout = TakeLayout(command.Text, context);
    if (Run(command, layout, window, context)) {
        // A prompt leaves time for the phrase to go.
        if (const VBRCommand* used = with_.Tree.FindByFile(file)) {
            with_.Tree.RecordUsage(used->CMDID);
        }
    }
    return true;
}

void CommandDelivery::DeliverClip(ClipText clip, WindowHandle window,
                                  const DeliveryContext& context) {
    const Lcid layout = TakeLayout(clip.Text, context);
    Run(clip, layout, window, context);
    with_.Delivery.CopyToClipboard(clip.DataType == kDataTypeText, clip.Text, layout);
}

std::u16string CommandDelivery::TextOf(const VBRCommand& phrase,
                                       const DeliveryContext& context) const {
    std::u16string text = phrase.Cmd;
    with_.Macros.StripLayoutMacros(text);
    ActionList actions;
    with_.Runner.BuildActions({.ClipboardText = context.ClipboardText,
                               .SelText = context.SelText,
                               .DataType = phrase.DataType,
                               .Language = context.Language},
                              text, actions);
    return ActionsToText(actions);
}

Lcid CommandDelivery::TakeLayout(std::u16string& text, const DeliveryContext& context) const {
    return context.MaySwitchLayout ? with_.Macros.StripLayoutMacros(text) : 0;
}

bool CommandDelivery::Run(const ClipText& command, Lcid layout, WindowHandle window,
                          const DeliveryContext& context) {
    const CVBRActionContext actionContext{.TargetWindow = window,
                                          .ClipboardText = context.ClipboardText,
                                          .SelText = context.SelText,
                                          .DataType = command.DataType,
                                          .Language = context.Language};
    ActionList actions;
    with_.Runner.BuildActions(actionContext, command.Text, actions);
    SwitchLayout(layout, actionContext);
    if (actions.empty()) {
        return false;
    }
    with_.Sounds.PlayEventSound(command.DataType == kDataTypeExec ? EventSound::ProgramLaunched
                                                                  : EventSound::TextInserted);
    const MyCopyScope ownCopy(with_.OwnCopy);
    return with_.Runner.RunActions(actionContext, actions);
}

void CommandDelivery::SwitchLayout(Lcid layout, const CVBRActionContext& context) {
    if (layout != 0 && layout != context.Language && with_.Layouts.IsInstalled(layout)) {
        with_.Layouts.SwitchKeyboardLayout(layout, context.TargetWindow);
    }
}

}  // namespace vbr
