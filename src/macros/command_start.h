// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "macros/command_split.h"
#include "macros/command_text.h"
#include "platform/event_sounds.h"
#include "platform/log.h"
#include "platform/program_starter.h"
#include "platform/strings.h"
#include "platform/window_handle.h"

namespace vbr {

// What a message about a failed start says of the command's parts, each cut where it is long.
std::u16string ProcessedCommandText(const CommandParts& parts);

// Starts programs and opens documents and addresses for phrases.
class CommandStart {
  public:
    CommandStart(ProgramStarter& starter, const Strings& texts, EventSounds& sounds, Log& log)
        : starter_(starter), texts_(texts), sounds_(sounds), log_(log) {}

    // Runs the command; false when nothing could be started. A failure is logged and shown over the
    // window until the user closes it.
    bool ExecuteCommandLine(WindowHandle owner, const CommandText& command);

  private:
    ProgramStarter& starter_;
    const Strings& texts_;
    EventSounds& sounds_;
    Log& log_;
};

}  // namespace vbr
