// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "base/text.h"
#include "fakes/fake_clipboard_access.h"
#include "fakes/fake_desktop_windows.h"
#include "fakes/fake_sound_player.h"
#include "fakes/journal.h"
#include "fakes/macro_fixture.h"
#include "fakes/phrase_tree.h"
#include "fakes/recording_input.h"
#include "macros/command_delivery.h"
#include "macros/prompt_dialog.h"
#include "platform/program_starter.h"
#include "platform/target_windows.h"

namespace vbr {

// Answers prompts in turn; nothing is Cancel.
class FakePrompter : public Prompter {
  public:
    explicit FakePrompter(Journal& calls) : calls_(calls) {}

    std::deque<std::optional<std::u16string>> Answers;
    std::vector<std::u16string> Defaults;  // as they were shown
    std::function<void()> WhileOpen = [] {};

    bool ShowPromptDialog(WindowHandle, std::u16string& inOutText) override {
        calls_.push_back("prompt");
        Defaults.push_back(inOutText);
        WhileOpen();
        const std::optional<std::u16string> answer = Answers.front();
        Answers.pop_front();
        inOutText = answer.value_or(u"");
        return answer.has_value();
    }

  private:
    Journal& calls_;
};

// Files and folders by their full names, programs and variables by theirs, and what was started.
class FakeProgramStarter : public ProgramStarter {
  public:
    std::set<std::u16string> Files;
    std::set<std::u16string> Folders;
    std::map<std::u16string, std::u16string, std::less<>> Programs;
    std::map<std::u16string, std::u16string, std::less<>> Variables;
    std::optional<SystemError> Fault;     // of a start
    std::vector<std::u16string> Started;  // path and parameters, each in brackets
    std::vector<std::string> Told;
    mutable int Asked = 0;

    bool IsFile(std::u16string_view path) const override {
        ++Asked;
        return Files.contains(std::u16string(path));
    }
    bool IsFolder(std::u16string_view path) const override {
        ++Asked;
        return Folders.contains(std::u16string(path));
    }
    std::optional<SystemError> Start(std::u16string_view path,
                                     std::u16string_view parameters) override {
        Started.push_back(Concat(u"[", path, u"][", parameters, u"]"));
        return Fault;
    }
    std::optional<std::u16string> FindProgram(std::u16string_view name) const override {
        ++Asked;
        return Look(Programs, name);
    }
    std::optional<std::u16string> EnvironmentVariable(std::u16string_view name) const override {
        return Look(Variables, name);
    }
    SystemError FileNotFound() const override { return {2, u"not found"}; }
    void TellFailure(WindowHandle, std::u16string_view text, std::u16string_view) override {
        Told.push_back(Utf16ToUtf8(text));
    }

  private:
    static std::optional<std::u16string> Look(const auto& known, std::u16string_view name) {
        const auto found = known.find(name);
        return found == known.end() ? std::nullopt : std::optional(found->second);
    }
};

// Every window but 0 lives, until it is named as gone.
class FakeTargetWindows : public TargetWindows {
  public:
    std::set<WindowHandle> Gone = {0};
    std::set<WindowHandle> Own;
    std::set<WindowHandle> Elevated;
    std::set<WindowHandle> Behind;  // those that another program stands in front of
    int Wakes = 0;

    bool IsWindow(WindowHandle window) const override { return !Gone.contains(window); }
    bool IsOwnProcess(WindowHandle window) const override { return Own.contains(window); }
    bool IsInFront(WindowHandle window) const override {
        return IsWindow(window) && !Behind.contains(window);
    }
    bool RunsElevated(WindowHandle window) const override { return Elevated.contains(window); }
    void Wake(WindowHandle) override { ++Wakes; }
};

// The delivery with all that it works on.
struct DeliveryFixture {
    Journal Calls;
    MacroFixture Macros;
    PhraseTree Phrases;
    RecordingInput Input{Macros.Clock, &Calls};
    FakeClipboardAccess Clipboard{&Calls};
    MyCopyGuard OwnCopy{Clipboard, FakeClipboardAccess::kOwnProcess, Macros.Log};
    FakePrompter Prompts{Calls};
    FakeDesktopWindows Windows{Calls};
    FakeTargetWindows Targets;
    FakeInputJoin Join;
    FakeProgramStarter Starter;
    FakeSoundPlayer Player;
    PasteSettings Paste;
    std::function<bool()> AreSoundsOn = [] { return true; };
    std::function<bool()> IsEnding = [] { return false; };
    EventSounds Sounds{{.ProgramFolder = u"",
                        .IsOn = [this] { return AreSoundsOn(); },
                        .Player = Player,
                        .Log = Macros.Log}};
    TargetInput Keys{{.Input = Input,
                      .Join = Join,
                      .Windows = Targets,
                      .Clock = Macros.Clock,
                      .Log = Macros.Log}};
    CClipboardSnapshot PasteSnapshot{Clipboard, Macros.Log};
    TextDelivery Text{{.Input = Input,
                       .Keys = Keys,
                       .Targets = Targets,
                       .Clipboard = Clipboard,
                       .OwnCopy = OwnCopy,
                       .Snapshot = PasteSnapshot,
                       .RichText = Macros.RichText,
                       .Locale = Macros.Forms,
                       .Clock = Macros.Clock,
                       .Log = Macros.Log,
                       .Settings = [this] { return Paste; }}};
    LayoutSwitcher Layouts{{.Input = Input,
                            .Keys = Keys,
                            .Layouts = Macros.Layouts,
                            .Windows = Windows,
                            .Targets = Targets,
                            .Clock = Macros.Clock,
                            .Log = Macros.Log}};
    CommandStart Commands{Starter, Macros.Texts, Sounds, Macros.Log};
    ActionRunner Runner{{.Macros = Macros.Engine,
                         .Rich = Macros.Rich,
                         .Delivery = Text,
                         .Commands = Commands,
                         .Prompts = Prompts,
                         .Windows = Windows,
                         .Targets = Targets,
                         .Log = Macros.Log,
                         .IsEnding = [this] { return IsEnding(); }}};
    CommandDelivery Delivery{{.Tree = Phrases.Tree,
                              .Macros = Macros.Engine,
                              .Runner = Runner,
                              .Delivery = Text,
                              .Layouts = Layouts,
                              .Sounds = Sounds,
                              .Log = Macros.Log}};

    // The files of the sounds so far.
    const std::vector<std::string>& Heard() {
        Sounds.Flush();
        return Player.Played;
    }
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
    bool Told(std::u16string_view text) const { return Macros.Log.Tells(text); }
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
