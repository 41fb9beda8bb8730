// SPDX-License-Identifier: MIT
#include "macros/command_delivery.h"

namespace vbr {

DeliverResult CommandDelivery::DeliverCommand(std::uint32_t id, WindowHandle window,
                                              const DeliveryContext& context) {
    const VBRCommand* record = tree_.FindCommand(id);
    if (!record || record->IsGroup()) {
        return DeliverResult::Nothing;
    }
    std::u16string text = record->Cmd;
    macros_.StripLayoutMacros(text);
    const CVBRActionContext actionContext{window, context.ClipboardText, context.SelText,
                                          record->DataType, context.Language};
    ActionList actions;
    runner_.BuildActions(actionContext, text, actions);
    if (runner_.RunActions(actionContext, actions)) {
        tree_.RecordUsage(id);
    }
    return DeliverResult::Phrase;
}

}  // namespace vbr
