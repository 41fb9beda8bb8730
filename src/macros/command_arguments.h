// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "macros/command_text.h"

namespace vbr {

// The parameters as text for a program that reads them by the rules of CommandLineToArgvW. What the
// phrase wrote stays as it is; each value stays within the one argument it stands in, quoted where
// the phrase has no quotes round it.
std::u16string ArgumentText(const CommandText& parameters);

// Whether the command processor reads the parameters: it is the program, or named among them, or
// the program is a batch file or a link, which may lead to one.
bool IsReadByCmd(std::u16string_view program, const CommandText& parameters);

// The parameters with blanks for the characters by which a value could begin another command. No
// quotes and no escapes keep these from the command processor, which reads a line more than once.
CommandText WithoutCmdSigns(const CommandText& parameters);

}  // namespace vbr
