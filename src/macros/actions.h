// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "macros/macro_engine.h"
#include "macros/text_delivery.h"
#include "platform/log.h"
#include "platform/window_handle.h"

namespace vbr {

// What one delivery works with.
struct CVBRActionContext {
    WindowHandle TargetWindow = 0;
    std::u16string ClipboardText;
    std::u16string SelText;
    std::int32_t DataType = 0;
    Lcid Language = 0;
};

// One step of a delivery: a piece of text, a prompt, a command to run.
class CVBRAction {
  public:
    explicit CVBRAction(std::u16string text) : Text(std::move(text)) {}
    virtual ~CVBRAction() = default;

    virtual void Execute(WindowHandle window) = 0;

    std::u16string Text;
};

// A piece of text with the place of the cursor in it.
class CVBRAction_TextCommon : public CVBRAction {
  public:
    CVBRAction_TextCommon(std::u16string text, std::size_t cursorBack, Lcid language)
        : CVBRAction(std::move(text)), CursorBack(cursorBack), Language(language) {}

    std::size_t CursorBack;
    Lcid Language;
};

class CVBRAction_PlainText : public CVBRAction_TextCommon {
  public:
    CVBRAction_PlainText(std::u16string text, std::size_t cursorBack, Lcid language,
                         TextDelivery& delivery)
        : CVBRAction_TextCommon(std::move(text), cursorBack, language), delivery_(delivery) {}

    void Execute(WindowHandle window) override;

  private:
    TextDelivery& delivery_;
};

using ActionList = std::vector<std::unique_ptr<CVBRAction>>;

// Turns a phrase's text into actions and runs them.
class ActionRunner {
  public:
    ActionRunner(const MacroEngine& macros, TextDelivery& delivery, Log& log)
        : macros_(macros), delivery_(delivery), log_(log) {}

    // Every segment of the text expanded by itself, in order. False for a kind of phrase that
    // isn't delivered; the log says which.
    bool BuildActions(const CVBRActionContext& context, std::u16string_view text, ActionList& list);

    // Runs the actions in order; false for an empty list.
    bool RunActions(const CVBRActionContext& context, const ActionList& list);

  private:
    const MacroEngine& macros_;
    TextDelivery& delivery_;
    Log& log_;
};

// The text of all actions, with nothing between them.
std::u16string ActionsToText(const ActionList& list);

}  // namespace vbr
