// SPDX-License-Identifier: MIT
#pragma once

#include "base/text.h"
#include "fakes/fake_clipboard_access.h"
#include "fakes/fake_delivery_host.h"
#include "fakes/fake_desktop_windows.h"
#include "fakes/fake_program_starter.h"
#include "fakes/fake_prompter.h"
#include "fakes/fake_target_windows.h"
#include "fakes/macro_desk.h"
#include "fakes/phrase_tree.h"
#include "fakes/recording_input.h"
#include "macros/command_delivery.h"

namespace vbr {

class NumberedErrorText : public SystemErrorText {
  public:
    std::uint32_t LastError() const override { return 0; }
    std::u16string TextOf(std::uint32_t code) const override { return Concat(u"error ", code); }
};

// The delivery with all that it works on.
struct DeliveryDesk {
    Journal Calls;
    MacroDesk Macros;
    PhraseTree Phrases;
    RecordingInput Input{&Calls};
    FakeClipboardAccess Clipboard;
    FakeDeliveryHost Host{Calls};
    FakePrompter Prompts{Calls};
    FakeDesktopWindows Windows{Calls};
    FakeTargetWindows Targets;
    FakeProgramStarter Starter;
    NumberedErrorText Errors;
    PasteSettings Settings;
    TextDelivery Text{{Input, Clipboard, Macros.RichText, Macros.Forms, Macros.Clock, Host,
                       Macros.Log, [this] { return Settings; }}};
    LayoutSwitcher Layouts{{Input, Macros.Layouts, Windows, Targets, Macros.Clock, Macros.Log}};
    CommandStart Commands{Starter, Errors, Macros.Texts, Host, Macros.Log};
    ActionRunner Runner{
        {Macros.Engine, Macros.Rich, Text, Commands, Prompts, Windows, Targets, Macros.Log}};
    CommandDelivery Delivery{
        {Phrases.Tree, Macros.Engine, Runner, Text, Layouts, Host, Macros.Log}};

    // What was typed, the Unicode events that go down.
    std::u16string Typed() const {
        std::u16string text;
        for (const auto& events : Input.Sent) {
            for (const KeyEvent& event : events) {
                if (event.Flags == kKeyUnicode) {
                    text += static_cast<char16_t>(event.Scan);
                }
            }
        }
        return text;
    }
    // Whether the log has a line that holds the text.
    bool Told(std::u16string_view text) const {
        return std::ranges::any_of(Macros.Log.Lines, [text](const std::u16string& line) {
            return line.find(text) != line.npos;
        });
    }
    // The bytes of a format on the clipboard as text; nothing when it isn't there.
    std::optional<std::string> OnClipboard(std::uint32_t format) const {
        const ClipboardBlock* block = Clipboard.Find(format);
        if (!block) {
            return std::nullopt;
        }
        return std::string(reinterpret_cast<const char*>(block->Bytes.data()), block->Bytes.size());
    }
};

}  // namespace vbr
