// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "phrases/command_record.h"

namespace vbr {

// The phrase's title as the menu shows it, at most 40 UTF-16 units and "…".
std::u16string PhraseTitle(const VBRCommand& record);

}  // namespace vbr
