// SPDX-License-Identifier: MIT
#include "macros/actions.h"

#include "base/text.h"
#include "macros/prompt_split.h"
#include "phrases/command_record.h"

namespace vbr {

void CVBRAction_PlainText::Execute(WindowHandle) {
    delivery_.DeliverText(Text, CursorBack);
}

bool ActionRunner::BuildActions(const CVBRActionContext& context, std::u16string_view text,
                                ActionList& list) {
    if (context.DataType != kDataTypeText) {
        log_.LogError(
            Concat(u"Delivery of ", DataTypeToText(context.DataType), u" phrases is off"));
        return false;
    }
    const MacroInput input{context.SelText, context.ClipboardText, context.Language};
    for (TextSegment& segment : SplitPromptMacros(text)) {
        if (segment.Kind == SegmentKind::Prompt) {
            log_.LogError(Concat(u"Prompts are off, skipped: ", segment.Text));
            continue;
        }
        const MacroOutcome outcome = macros_.ExpandMacros(segment.Text, input);
        list.push_back(std::make_unique<CVBRAction_PlainText>(
            std::move(segment.Text), outcome.CursorBack, context.Language, delivery_));
    }
    return true;
}

bool ActionRunner::RunActions(const CVBRActionContext& context, const ActionList& list) {
    for (const std::unique_ptr<CVBRAction>& action : list) {
        action->Execute(context.TargetWindow);
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
