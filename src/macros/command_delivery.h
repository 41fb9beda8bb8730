// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "macros/actions.h"
#include "macros/layout_switcher.h"
#include "macros/macro_engine.h"
#include "phrases/command_tree.h"
#include "platform/event_sounds.h"
#include "platform/log.h"
#include "platform/window_handle.h"

namespace vbr {

// An item of the clipboard history as a phrase: plain text or Rich Text Format source.
struct ClipText {
    std::int32_t DataType = 0;
    std::u16string Text;

    bool operator==(const ClipText&) const = default;
};

// What the query behind the menu found, kept for the delivery of the choice.
struct DeliveryContext {
    std::u16string ClipboardText;
    std::u16string SelText;
    Lcid Language = 0;
    bool MaySwitchLayout = true;
};

// From a choice to text in the target window. Belongs to the main thread.
class CommandDelivery {
  public:
    struct Collaborators {
        CVBRCommandTree& Tree;
        const MacroEngine& Macros;
        ActionRunner& Runner;
        TextDelivery& Delivery;
        LayoutSwitcher& Layouts;
        EventSounds& Sounds;
        vbr::Log& Log;
    };

    explicit CommandDelivery(const Collaborators& with) : with_(with) {}

    // Delivers the phrase with that file, if there is one, and counts its use when all of it has
    // arrived; else what has not.
    std::optional<UndeliveredText> DeliverPhrase(const std::filesystem::path& file,
                                                 WindowHandle window,
                                                 const DeliveryContext& context);
    // Delivers the item as it stands, without a look for macros, and leaves it on the clipboard.
    std::optional<UndeliveredText> DeliverClip(const ClipText& clip, WindowHandle window,
                                               const DeliveryContext& context);
    // The phrase's text or source as a delivery would make it, prompts by their default answers.
    std::u16string TextOf(const VBRCommand& phrase, const DeliveryContext& context) const;

  private:
    std::optional<UndeliveredText> Run(const CVBRActionContext& context, const ActionList& actions);
    void SwitchLayout(Lcid layout, const CVBRActionContext& context);

    Collaborators with_;
};

}  // namespace vbr
