// SPDX-License-Identifier: MIT
#include "macros/actions.h"

#include "base/cursor_steps.h"
#include "base/text.h"
#include "macros/prompt_split.h"
#include "phrases/command_record.h"

namespace vbr {

TextDelivery::Result CVBRAction_Exec::Execute(WindowHandle window) {
    return start_.ExecuteCommandLine(window, command_) ? std::nullopt
                                                       : std::optional(DeliveryFailure::NotStarted);
}

TextDelivery::Result CVBRAction_PlainText::Execute(WindowHandle window) {
    return delivery_.DeliverText(window, Text);
}

std::size_t CVBRAction_PlainText::Steps() const {
    return CursorSteps(Text);
}

TextDelivery::Result CVBRAction_RichText::Execute(WindowHandle window) {
    return delivery_.PasteRich(window, Text, Language);
}

std::size_t CVBRAction_RichText::Steps() const {
    return CursorSteps(delivery_.PlainTextOf(Text));
}

TextDelivery::Result CVBRAction_Prompt::Execute(WindowHandle window) {
    if (!prompter_.ShowPromptDialog(window, Text)) {
        Text.clear();
    }
    return Text.empty() ? std::nullopt : CVBRAction_PlainText::Execute(window);
}

bool ActionRunner::BuildActions(const CVBRActionContext& context, std::u16string_view text,
                                ActionList& list) {
    if (context.DataType < kDataTypeText || context.DataType > kDataTypeExec) {
        with_.Log.LogError(Concat(u"Unknown kind of phrase: ", context.DataType));
        return false;
    }
    if (context.DataType == kDataTypeRtf) {
        return BuildRichActions(context, text, list);
    }
    for (TextSegment& segment : SplitPromptMacros(text)) {
        if (segment.Kind == SegmentKind::Prompt) {
            list.push_back(std::make_unique<CVBRAction_Prompt>(
                std::move(segment.Text), context.Language, with_.Delivery, with_.Prompts));
        } else {
            list.push_back(MakeTextAction(context, std::move(segment.Text)));
        }
    }
    return true;
}

bool ActionRunner::BuildRichActions(const CVBRActionContext& context, std::u16string_view source,
                                    ActionList& list) {
    auto segments = with_.Rich.ExpandSegments(
        source, {context.SelText, context.ClipboardText, context.Language});
    if (!segments) {
        with_.Log.LogError(RichFailure(context.Title));
        CVBRActionContext plain = context;
        plain.DataType = kDataTypeText;
        return BuildActions(plain, with_.Rich.ReadableText(source), list);
    }
    for (RichSegment& segment : *segments) {
        if (segment.Kind == SegmentKind::Prompt) {
            list.push_back(std::make_unique<CVBRAction_Prompt>(
                std::move(segment.Text), context.Language, with_.Delivery, with_.Prompts));
        } else {
            list.push_back(std::make_unique<CVBRAction_RichText>(
                std::move(segment.Text), segment.CursorBack, context.Language, with_.Delivery));
        }
    }
    return true;
}

std::u16string ActionRunner::TextOf(const CVBRActionContext& context, std::u16string_view text) {
    if (context.DataType == kDataTypeRtf) {
        const MacroInput input{context.SelText, context.ClipboardText, context.Language};
        if (auto source = with_.Rich.ExpandMacrosRich(text, input)) {
            return *std::move(source);
        }
    }
    ActionList actions;
    BuildActions(context, text, actions);
    return ActionsToText(actions);
}

std::unique_ptr<CVBRAction> ActionRunner::MakeTextAction(const CVBRActionContext& context,
                                                         std::u16string text) const {
    if (context.DataType == kDataTypeExec) {
        return std::make_unique<CVBRAction_Exec>(
            ExpandExecCommand(context.TargetWindow, text, context.SelText, context.ClipboardText),
            with_.Commands);
    }
    const MacroInput input{context.SelText, context.ClipboardText, context.Language};
    const auto cursorBack = with_.Macros.ExpandMacros(text, input).CursorBack;
    return std::make_unique<CVBRAction_PlainText>(std::move(text), cursorBack, context.Language,
                                                  with_.Delivery);
}

CommandText ActionRunner::ExpandExecCommand(WindowHandle window, std::u16string_view text,
                                            std::u16string_view selText,
                                            std::u16string_view clipboardText) const {
    std::u16string oneLine(selText);
    ReplaceAll(oneLine, u"\r\n", u" ");
    const std::uint32_t thread = with_.Windows.ThreadOf(window).Thread;
    return ExpandCommand(text,
                         {oneLine, clipboardText, LanguageOf(with_.Windows.KeyboardLayout(thread))},
                         with_.Macros);
}

void ActionRunner::BuildLiteral(const CVBRActionContext& context, std::u16string text,
                                ActionList& list) {
    if (context.DataType == kDataTypeRtf) {
        list.push_back(std::make_unique<CVBRAction_RichText>(std::move(text), std::nullopt,
                                                             context.Language, with_.Delivery));
    } else {
        list.push_back(std::make_unique<CVBRAction_PlainText>(std::move(text), std::nullopt,
                                                              context.Language, with_.Delivery));
    }
}

std::optional<UndeliveredText> ActionRunner::RunActions(const CVBRActionContext& context,
                                                        const ActionList& list) {
    const WindowHandle window = context.TargetWindow;
    std::optional<UndeliveredText> lost;
    std::optional<std::size_t> stepsBack;  // from the end of what was delivered to the mark
    for (const std::unique_ptr<CVBRAction>& action : list) {
        if (with_.IsEnding()) {
            with_.Log.Write(u"The program ends: the rest of the phrase is not delivered");
            return UndeliveredText{DeliveryFailure::ProgramEnds, action->Text};
        }
        auto failure = action->NeedsTarget() ? WhyOutOfReach(window) : std::nullopt;
        if (!failure) {
            failure = action->Execute(window);
        }
        if (failure) {
            lost = lost ? std::move(lost) : UndeliveredText{*failure, action->Text};
        } else if (stepsBack) {
            *stepsBack += action->Steps();
        } else {
            stepsBack = action->StepsBehindMark();
        }
    }
    if (stepsBack.value_or(0) > 0 && !lost) {
        if (with_.Delivery.MoveCursorBack(window, *stepsBack)) {
            with_.Log.LogError(u"The cursor was not brought back to its mark");
        }
    }
    with_.Delivery.EndPastes();
    return lost;
}

std::optional<DeliveryFailure> ActionRunner::WhyOutOfReach(WindowHandle window) const {
    if (!with_.Targets.IsWindow(window)) {
        with_.Log.LogError(u"The target window is gone");
        return DeliveryFailure::TargetGone;
    }
    if (with_.Targets.RunsElevated(window)) {
        with_.Log.LogError(
            u"The target runs with administrator's rights; the system keeps typed keys from it");
        return DeliveryFailure::TargetElevated;
    }
    return std::nullopt;
}

std::u16string ActionsToText(const ActionList& list) {
    std::u16string text;
    for (const std::unique_ptr<CVBRAction>& action : list) {
        text += action->Text;
    }
    return text;
}

}  // namespace vbr
