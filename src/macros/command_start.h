// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "platform/event_sounds.h"
#include "platform/log.h"
#include "platform/program_starter.h"
#include "platform/strings.h"
#include "platform/window_handle.h"

namespace vbr {

// A command line as the shell takes it.
struct CommandParts {
    std::u16string_view Path;
    std::u16string_view Parameters;  // with the blank at its start

    bool operator==(const CommandParts&) const = default;
};

// The longest front of the command that names a file, and the rest as its parameters. An address,
// and a command with no such front, stays whole. The parts point into the command.
CommandParts SplitCommandLine(std::u16string_view command, const ProgramStarter& files);

// What a message about a failed start says of the command's parts.
std::u16string ProcessedCommandText(const CommandParts& parts);

// Starts programs and opens documents and addresses for phrases.
class CommandStart {
  public:
    CommandStart(ProgramStarter& starter, const Strings& texts, EventSounds& sounds, Log& log)
        : starter_(starter), texts_(texts), sounds_(sounds), log_(log) {}

    // Runs the command. A failure is logged and shown over the window until the user closes it.
    void ExecuteCommandLine(WindowHandle owner, std::u16string_view command);

  private:
    ProgramStarter& starter_;
    const Strings& texts_;
    EventSounds& sounds_;
    Log& log_;
};

}  // namespace vbr
