// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "macros/actions.h"
#include "macros/layout_switcher.h"
#include "macros/macro_engine.h"
#include "phrases/command_tree.h"
#include "platform/event_sounds.h"
#include "platform/log.h"
#include "platform/my_copy.h"
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
        MyCopyGuard& OwnCopy;
        vbr::Log& Log;
    };

    explicit CommandDelivery(const Collaborators& with) : with_(with) {}

    // Delivers the phrase with that file and counts its use. False when there is none.
    bool DeliverPhrase(const std::filesystem::path& file, WindowHandle window,
                       const DeliveryContext& context);
    // Delivers the item and leaves it on the clipboard.
    void DeliverClip(ClipText clip, WindowHandle window, const DeliveryContext& context);
    // The phrase's text or source as a delivery would make it, prompts by their default answers.
    std::u16string TextOf(const VBRCommand& phrase, const DeliveryContext& context) const;

  private:
    // Takes the layout macros out of the text; the language that they ask for, or 0.
    Lcid TakeLayout(std::u16string& text, const DeliveryContext& context) const;
    // False when there was nothing to do.
    bool Run(const ClipText& command, Lcid layout, WindowHandle window,
             const DeliveryContext& context);
    void SwitchLayout(Lcid layout, const CVBRActionContext& context);

    Collaborators with_;
};

}  // namespace vbr
