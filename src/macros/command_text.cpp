// SPDX-License-Identifier: MIT
#include "macros/command_text.h"

#include <algorithm>

#include "base/text.h"
#include "macros/value_marks.h"

namespace vbr {
namespace {

constexpr std::u16string_view kWhiteSpace = u" \t\r\n";
constexpr char16_t kPercent = u'%';

// The units of a marked text, each with the word whether it stands between marks.
CommandText ReadMarks(std::u16string_view marked) {
    CommandText command;
    int depth = 0;
    char16_t before = 0;
    for (char16_t c : marked) {
        if (c == kValueOpen || c == kValueClose) {
            depth += c == kValueOpen ? 1 : -1;
            continue;
        }
        const bool endsLine = depth > 0 && before == u'\r' && c == u'\n';
        before = c;
        if (!endsLine) {
            c = depth > 0 && c < u' ' ? u' ' : c;
            command.Append({&c, 1}, depth > 0);
        }
    }
    return command;
}

// Of the variable whose name begins behind the percent sign at `open`, the sign that ends it.
std::size_t EndOfName(const CommandText& command, std::size_t open) {
    const std::size_t close = command.Text().find(kPercent, open + 1);
    const bool isWritten = close != std::u16string::npos && !command.HasValue(open, close + 1);
    return isWritten ? close : std::u16string::npos;
}

}  // namespace

void CommandText::Append(std::u16string_view text, bool isValue) {
    text_ += text;
    isValue_.resize(text_.size(), isValue);
}

std::size_t CommandText::Find(std::size_t from, std::size_t to, bool isValue) const {
    const auto begin = isValue_.begin();
    const auto end = begin + static_cast<std::ptrdiff_t>(to);
    return static_cast<std::size_t>(
        std::find(begin + static_cast<std::ptrdiff_t>(from), end, isValue) - begin);
}

CommandText CommandText::Part(std::size_t from, std::size_t to) const {
    CommandText part;
    part.text_ = text_.substr(from, to - from);
    const auto first = isValue_.begin() + static_cast<std::ptrdiff_t>(from);
    part.isValue_.assign(first, first + static_cast<std::ptrdiff_t>(part.Size()));
    return part;
}

CommandText CommandText::Trimmed() const {
    const std::size_t first = std::min(text_.find_first_not_of(kWhiteSpace), Size());
    return Part(first, std::max(first, text_.find_last_not_of(kWhiteSpace) + 1));
}

CommandText ExpandCommand(std::u16string_view text, MacroInput input, const MacroEngine& macros) {
    std::u16string expanded = WithoutMarks(text);
    input.MarksValues = true;
    macros.ExpandMacros(expanded, input);
    return ReadMarks(expanded);
}

CommandText WithEnvironment(const CommandText& command, const ProgramStarter& starter) {
    const std::u16string_view text = command.Text();
    CommandText out;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t close =
            command.Wrote(at, kPercent) ? EndOfName(command, at) : std::u16string::npos;
        const auto value = close == std::u16string::npos
                               ? std::nullopt
                               : starter.EnvironmentVariable(text.substr(at + 1, close - at - 1));
        out.Append(value ? std::u16string_view(*value) : text.substr(at, 1), command.IsValue(at));
        at = value ? close + 1 : at + 1;
    }
    return out;
}

}  // namespace vbr
