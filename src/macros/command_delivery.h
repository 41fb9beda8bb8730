// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "macros/actions.h"
#include "macros/delivery_host.h"
#include "macros/layout_switcher.h"
#include "macros/macro_engine.h"
#include "phrases/command_tree.h"
#include "platform/log.h"
#include "platform/window_handle.h"

namespace vbr {

// What an id stood for. A phrase whose tree was read again meanwhile counts as Handled: its id may
// be another's by now.
enum class DeliverResult { Handled = 0, HistoryItem = 1, Phrase = 2, Nothing = 3 };

// What the query behind the menu found, kept for the delivery of the choice.
struct DeliveryContext {
    std::u16string ClipboardText;
    std::u16string SelText;
    Lcid Language = 0;
    bool MaySwitchLayout = true;
};

// The text behind an id of the menu.
struct ResolvedCommand {
    DeliverResult Kind = DeliverResult::Nothing;  // Phrase, HistoryItem or Nothing
    std::u16string Text;
    std::int32_t DataType = 0;
};

// The road from a chosen id to text in the target window. Belongs to the main thread. While a
// prompt is open another delivery may run within one.
class CommandDelivery {
  public:
    struct Parts {
        CVBRCommandTree& Tree;
        const MacroEngine& Macros;
        ActionRunner& Runner;
        TextDelivery& Delivery;
        LayoutSwitcher& Layouts;
        DeliveryHost& Host;
        Log& DeliveryLog;
    };

    explicit CommandDelivery(const Parts& parts) : parts_(parts) {}

    // Delivers the phrase or history item with that id and counts a phrase's use. When nothing
    // answers to the id, the clipboard gets back what it held before the query.
    DeliverResult DeliverCommand(std::uint32_t id, WindowHandle window,
                                 const DeliveryContext& context);

    // A phrase goes before a history item with the same id.
    ResolvedCommand ResolveCommand(std::uint32_t id) const;

  private:
    void SwitchLayout(Lcid layout, const CVBRActionContext& context);
    bool CountUse(std::uint32_t id, const std::filesystem::path& file);

    Parts parts_;
};

}  // namespace vbr
