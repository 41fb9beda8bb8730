// SPDX-License-Identifier: MIT
#include "macros/command_delivery.h"

namespace vbr {
namespace {

CVBRActionContext ContextOf(const VBRCommand& phrase, WindowHandle window,
                            const DeliveryContext& context) {
    return {.TargetWindow = window,
            .ClipboardText = context.ClipboardText,
            .SelText = context.SelText,
            .DataType = phrase.DataType,
            .Language = context.Language,
            .Title = phrase.Text};
}

}  // namespace

std::optional<UndeliveredText> CommandDelivery::DeliverPhrase(const std::filesystem::path& file,
                                                              WindowHandle window,
                                                              const DeliveryContext& context) {
    const VBRCommand* record = with_.Tree.FindByFile(file);
    if (!record) {
        return std::nullopt;
    }
    std::u16string text = record->Cmd;
    const CVBRActionContext actionContext = ContextOf(*record, window, context);
    const Lcid layout = context.MaySwitchLayout ? with_.Macros.StripLayoutMacros(text) : 0;
    ActionList actions;
    with_.Runner.BuildActions(actionContext, text, actions);
    SwitchLayout(layout, actionContext);
    auto lost = Run(actionContext, actions);
    if (!lost && !actions.empty()) {
        // A prompt leaves time for the phrase to go.
        if (const VBRCommand* used = with_.Tree.FindByFile(file)) {
            with_.Tree.RecordUsage(used->CMDID);
        }
    }
    return lost;
}

std::optional<UndeliveredText> CommandDelivery::DeliverClip(const ClipText& clip,
                                                            WindowHandle window,
                                                            const DeliveryContext& context) {
    const CVBRActionContext actionContext{
        .TargetWindow = window, .DataType = clip.DataType, .Language = context.Language};
    ActionList actions;
    with_.Runner.BuildLiteral(actionContext, clip.Text, actions);
    auto lost = Run(actionContext, actions);
    with_.Delivery.CopyToClipboard(clip.DataType == kDataTypeText, clip.Text, 0);
    return lost;
}

std::u16string CommandDelivery::TextOf(const VBRCommand& phrase,
                                       const DeliveryContext& context) const {
    std::u16string text = phrase.Cmd;
    with_.Macros.StripLayoutMacros(text);
    return with_.Runner.TextOf(ContextOf(phrase, 0, context), text);
}

std::optional<UndeliveredText> CommandDelivery::Run(const CVBRActionContext& context,
                                                    const ActionList& actions) {
    if (actions.empty()) {
        return std::nullopt;
    }
    with_.Sounds.PlayEventSound(context.DataType == kDataTypeExec ? EventSound::ProgramLaunched
                                                                  : EventSound::TextInserted);
    return with_.Runner.RunActions(context, actions);
}

void CommandDelivery::SwitchLayout(Lcid layout, const CVBRActionContext& context) {
    if (layout != 0 && layout != context.Language && with_.Layouts.IsInstalled(layout)) {
        with_.Layouts.SwitchKeyboardLayout(layout, context.TargetWindow);
    }
}

}  // namespace vbr
