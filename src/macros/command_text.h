// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "macros/macro_engine.h"
#include "platform/program_starter.h"

namespace vbr {

// A command line that knows which of its units are a macro's value and which the phrase wrote.
class CommandText {
  public:
    CommandText() = default;
    // All of it written by the phrase.
    explicit CommandText(std::u16string_view text) { Append(text, false); }

    void Append(std::u16string_view text, bool isValue);

    const std::u16string& Text() const { return text_; }
    std::size_t Size() const { return text_.size(); }
    bool IsValue(std::size_t at) const { return isValue_[at]; }
    // Whether the phrase wrote this unit there.
    bool Wrote(std::size_t at, char16_t c) const { return text_[at] == c && !isValue_[at]; }

    // The first unit at or behind `from` that is part of a value, or that isn't; the size when
    // there is none.
    std::size_t FindValue(std::size_t from) const { return Find(from, Size(), true); }
    std::size_t FindWritten(std::size_t from) const { return Find(from, Size(), false); }
    bool HasValue() const { return HasValue(0, Size()); }
    bool HasValue(std::size_t from, std::size_t to) const { return Find(from, to, true) < to; }

    CommandText Part(std::size_t from, std::size_t to = std::u16string::npos) const;
    // Without blanks and line ends around it.
    CommandText Trimmed() const;

  private:
    std::size_t Find(std::size_t from, std::size_t to, bool isValue) const;

    std::u16string text_;
    std::vector<bool> isValue_;  // one for each unit
};

// The text with its macros expanded. A value comes on one line, its control characters as blanks.
CommandText ExpandCommand(std::u16string_view text, MacroInput input, const MacroEngine& macros);

// The command with the environment variables that the phrase wrote. What a value holds is no
// variable, and a name that isn't known stays.
CommandText WithEnvironment(const CommandText& command, const ProgramStarter& starter);

}  // namespace vbr
