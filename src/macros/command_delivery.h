// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "macros/actions.h"
#include "macros/macro_engine.h"
#include "phrases/command_tree.h"
#include "platform/window_handle.h"

namespace vbr {

enum class DeliverResult { Phrase = 2, Nothing = 3 };

// What the query behind the menu found, kept for the delivery of the choice.
struct DeliveryContext {
    std::u16string ClipboardText;
    std::u16string SelText;
    Lcid Language = 0;
};

// The road from a chosen id to text in the target window.
class CommandDelivery {
  public:
    CommandDelivery(CVBRCommandTree& tree, const MacroEngine& macros, ActionRunner& runner)
        : tree_(tree), macros_(macros), runner_(runner) {}

    // Delivers the phrase with that id and counts its use. Nothing when no phrase answers to it.
    DeliverResult DeliverCommand(std::uint32_t id, WindowHandle window,
                                 const DeliveryContext& context);

  private:
    CVBRCommandTree& tree_;
    const MacroEngine& macros_;
    ActionRunner& runner_;
};

}  // namespace vbr
