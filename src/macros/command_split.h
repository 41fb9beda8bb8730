// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "macros/command_text.h"
#include "platform/program_starter.h"

namespace vbr {

// A command line as the shell takes it.
struct CommandParts {
    std::u16string Path;
    std::u16string Parameters;  // with the blank at its start
    bool IsThere = true;        // false when the shell must not be asked: it might guess

    bool operator==(const CommandParts&) const = default;
};

// Reads a command line as Windows users write them. In this order it is: a path in quotes, a single
// value, an address, a file at its front (the longest), a program by its name. Environment
// variables of the phrase are replaced. A value never adds a program or an argument: alone it is a
// file, a folder or an address; at the front it is part of a path that is there as a whole; behind
// the program it stays within its argument.
CommandParts SplitCommandLine(const CommandText& command, const ProgramStarter& files);

}  // namespace vbr
