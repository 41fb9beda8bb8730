// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "macros/command_start.h"
#include "macros/delivery_failure.h"
#include "macros/macro_engine.h"
#include "macros/prompt_dialog.h"
#include "macros/rich_macros.h"
#include "macros/text_delivery.h"
#include "platform/desktop_windows.h"
#include "platform/log.h"
#include "platform/target_windows.h"
#include "platform/window_handle.h"

namespace vbr {

// What one delivery works with.
struct CVBRActionContext {
    WindowHandle TargetWindow = 0;  // 0 when a text is only worked out
    std::u16string ClipboardText;
    std::u16string SelText;
    std::int32_t DataType = 0;
    Lcid Language = 0;
    std::u16string Title = {};  // of the phrase, for the log
};

// One step of a delivery: a piece of text, a prompt, a command to run.
class CVBRAction {
  public:
    explicit CVBRAction(std::u16string text) : Text(std::move(text)) {}
    virtual ~CVBRAction() = default;

    // Nothing on success.
    virtual TextDelivery::Result Execute(WindowHandle window) = 0;
    // Whether it puts text into the window.
    virtual bool NeedsTarget() const { return true; }
    // How many presses of a cursor key pass the text, once it is delivered, and how many the part
    // behind the cursor's mark, when it has one.
    virtual std::size_t Steps() const { return 0; }
    virtual std::optional<std::size_t> StepsBehindMark() const { return std::nullopt; }

    std::u16string Text;
};

// Runs its text as a command line.
class CVBRAction_Exec : public CVBRAction {
  public:
    CVBRAction_Exec(CommandText command, CommandStart& start)
        : CVBRAction(command.Text()), command_(std::move(command)), start_(start) {}

    TextDelivery::Result Execute(WindowHandle window) override;
    bool NeedsTarget() const override { return false; }

  private:
    CommandText command_;
    CommandStart& start_;
};

// A piece of text with the place of the cursor in it.
class CVBRAction_TextCommon : public CVBRAction {
  public:
    CVBRAction_TextCommon(std::u16string text, std::optional<std::size_t> cursorBack, Lcid language,
                          TextDelivery& delivery)
        : CVBRAction(std::move(text)),
          CursorBack(cursorBack),
          Language(language),
          delivery_(delivery) {}

    std::optional<std::size_t> StepsBehindMark() const override { return CursorBack; }

    std::optional<std::size_t> CursorBack;  // nothing without a mark
    Lcid Language;

  protected:
    TextDelivery& delivery_;
};

class CVBRAction_PlainText : public CVBRAction_TextCommon {
  public:
    using CVBRAction_TextCommon::CVBRAction_TextCommon;

    TextDelivery::Result Execute(WindowHandle window) override;
    std::size_t Steps() const override;
};

class CVBRAction_RichText : public CVBRAction_TextCommon {
  public:
    using CVBRAction_TextCommon::CVBRAction_TextCommon;

    TextDelivery::Result Execute(WindowHandle window) override;
    std::size_t Steps() const override;
};

// Asks the user; its text is the default answer, and then the answer, which goes out as plain text.
class CVBRAction_Prompt : public CVBRAction_PlainText {
  public:
    CVBRAction_Prompt(std::u16string text, Lcid language, TextDelivery& delivery,
                      Prompter& prompter)
        : CVBRAction_PlainText(std::move(text), std::nullopt, language, delivery),
          prompter_(prompter) {}

    TextDelivery::Result Execute(WindowHandle window) override;

  private:
    Prompter& prompter_;
};

using ActionList = std::vector<std::unique_ptr<CVBRAction>>;

// A text that didn't reach its target.
struct UndeliveredText {
    DeliveryFailure Why;
    std::u16string Text;
};

// Turns a phrase's text into actions and runs them. Belongs to the main thread.
class ActionRunner {
  public:
    struct Collaborators {
        const MacroEngine& Macros;
        const RichMacros& Rich;
        TextDelivery& Delivery;
        CommandStart& Commands;
        Prompter& Prompts;
        const DesktopWindows& Windows;
        const TargetWindows& Targets;
        vbr::Log& Log;
        std::function<bool()> IsEnding;  // the program: what is left of a phrase is dropped
    };

    explicit ActionRunner(const Collaborators& with) : with_(with) {}

    // Every segment of the text expanded by itself, in order. Formatted text that the engine
    // refuses is told in the log and goes out as its plain text. False for an unknown kind of
    // phrase.
    bool BuildActions(const CVBRActionContext& context, std::u16string_view text, ActionList& list);

    // The text as it stands as the only action, typed or pasted, or pasted as formatted text.
    void BuildLiteral(const CVBRActionContext& context, std::u16string text, ActionList& list);

    // The text that the actions have together, prompts by their default answers. For formatted text
    // it is one source, or plain text if the engine refuses that.
    std::u16string TextOf(const CVBRActionContext& context, std::u16string_view text);

    // Runs the actions in order, each whatever became of those before it, and then brings the
    // cursor to its mark. Nothing goes to another window than that of the context; what didn't
    // arrive first comes back. The end of the program ends them.
    std::optional<UndeliveredText> RunActions(const CVBRActionContext& context,
                                              const ActionList& list);

  private:
    bool BuildRichActions(const CVBRActionContext& context, std::u16string_view source,
                          ActionList& list);
    std::optional<DeliveryFailure> WhyOutOfReach(WindowHandle window) const;
    std::unique_ptr<CVBRAction> MakeTextAction(const CVBRActionContext& context,
                                               std::u16string text) const;
    CommandText ExpandExecCommand(WindowHandle window, std::u16string_view text,
                                  std::u16string_view selText,
                                  std::u16string_view clipboardText) const;

    Collaborators with_;
};

// The text of all actions, with nothing between them.
std::u16string ActionsToText(const ActionList& list);

}  // namespace vbr
