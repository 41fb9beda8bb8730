// SPDX-License-Identifier: MIT
#include "macros/actions.h"

#include "base/text.h"
#include "macros/prompt_split.h"
#include "phrases/command_record.h"

namespace vbr {

void CVBRAction_Exec::Execute(WindowHandle window) {
    start_.ExecuteCommandLine(window, Text);
}

void CVBRAction_PlainText::Execute(WindowHandle) {
    delivery_.DeliverText(Text, CursorBack);
}

void CVBRAction_RichText::Execute(WindowHandle) {
    delivery_.PasteRich(Text, CursorBack, Language);
}

void CVBRAction_Prompt::Execute(WindowHandle window) {
    if (prompter_.ShowPromptDialog(window, Text) && !Text.empty()) {
        CVBRAction_PlainText::Execute(window);
    }
}

bool ActionRunner::BuildActions(const CVBRActionContext& context, std::u16string_view text,
                                ActionList& list) {
    if (context.DataType < kDataTypeText || context.DataType > kDataTypeExec) {
        with_.Log.LogError(Concat(u"Unknown kind of phrase: ", context.DataType));
        return false;
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

std::unique_ptr<CVBRAction> ActionRunner::MakeTextAction(const CVBRActionContext& context,
                                                         std::u16string text) const {
    if (context.DataType == kDataTypeExec) {
        ExpandExecCommand(context.TargetWindow, text, context.SelText, context.ClipboardText);
        return std::make_unique<CVBRAction_Exec>(std::move(text), with_.Commands);
    }
    const MacroInput input{context.SelText, context.ClipboardText, context.Language};
    if (context.DataType == kDataTypeRtf) {
        const std::size_t cursorBack = with_.Rich.ExpandMacrosRich(text, input).CursorBack;
        return std::make_unique<CVBRAction_RichText>(std::move(text), cursorBack, context.Language,
                                                     with_.Delivery);
    }
    const std::size_t cursorBack = with_.Macros.ExpandMacros(text, input).CursorBack;
    return std::make_unique<CVBRAction_PlainText>(std::move(text), cursorBack, context.Language,
                                                  with_.Delivery);
}

void ActionRunner::ExpandExecCommand(WindowHandle window, std::u16string& text,
                                     std::u16string_view selText,
                                     std::u16string_view clipboardText) const {
    std::u16string oneLine(selText);
    ReplaceAll(oneLine, u"\r\n", u" ");
    const std::uint32_t thread = with_.Windows.ThreadOf(window).Thread;
    with_.Macros.ExpandMacros(
        text, {oneLine, clipboardText, LanguageOf(with_.Windows.KeyboardLayout(thread))});
}

bool ActionRunner::RunActions(const CVBRActionContext& context, const ActionList& list) {
    WindowHandle window = context.TargetWindow;
    if (!with_.Targets.IsWindow(window)) {
        with_.Log.Write(u"The target window is gone; keys go to what has the focus now");
        window = 0;
    } else if (with_.Targets.RunsElevated(window)) {
        with_.Log.LogError(
            u"The target runs with administrator's rights; the system keeps typed keys from it");
    }
    for (const std::unique_ptr<CVBRAction>& action : list) {
        action->Execute(window);
    }
    return !list.empty();
}

std::u16string ActionsToText(const ActionList& list) {
    std::u16string text;
    for (const std::unique_ptr<CVBRAction>& action : list) {
        text += action->Text;
    }
    return text;
}

}  // namespace vbr
