// SPDX-License-Identifier: MIT
#include "macros/command_start.h"

#include "base/text.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

constexpr std::size_t kLineLength = 30;
constexpr char16_t kEmDash = u'\u2014';
// Without these a message could be larger than the screen, its button outside.
constexpr std::size_t kShownUnits = 500;
constexpr std::size_t kShownInLine = 100;

std::u16string Shown(std::u16string_view text) {
    const std::u16string_view start = CutUnits(text, kShownUnits);
    std::u16string lines;
    for (std::size_t at = 0; at < start.size();) {
        const std::u16string_view line = CutUnits(start.substr(at), kShownInLine);
        lines += lines.empty() ? u"" : u"\n";
        lines += line;
        at += line.size();
    }
    return start.size() < text.size() ? lines + u"…" : lines;
}

}  // namespace

std::u16string ProcessedCommandText(const CommandParts& parts) {
    return Concat(u"Processed Command:\n", std::u16string(kLineLength, kEmDash), u"\nPath: [",
                  Shown(parts.Path), u"]\nCommand Line: [", Shown(parts.Parameters), u"]");
}

bool CommandStart::ExecuteCommandLine(WindowHandle owner, const CommandText& command) {
    const CommandParts parts = SplitCommandLine(command, starter_);
    const std::optional<SystemError> error =
        parts.IsThere ? starter_.Start(parts.Path, parts.Parameters) : starter_.FileNotFound();
    if (!error) {
        sounds_.PlayEventSound(EventSound::ProgramLaunched);
        return true;
    }
    const std::u16string shown = Shown(command.Text());
    const std::u16string text =
        Concat(error->Text, u"\n\nCommand: ", shown, u"\n\nSource Command: ", shown, u"\n\n",
               ProcessedCommandText(parts));
    log_.LogError(text);
    starter_.TellFailure(owner, text, texts_.LoadString(kStrProductName));
    return false;
}

}  // namespace vbr
