// SPDX-License-Identifier: MIT
#include "macros/command_start.h"

#include <algorithm>
#include <iterator>

#include "base/text.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

constexpr std::u16string_view kSchemes[] = {
    u"https://",  u"http://", u"mailto:",     u"file://", u"ftp://", u"telnet://", u"news://",
    u"gopher://", u"nntp://", u"prospero://", u"wais://", u"lt:",    u"knd:"};
constexpr std::size_t kShortestAddress = 4;
constexpr std::u16string_view kSlashes = u"\\/";
constexpr std::size_t kLongestName = 255;  // of a file or folder, in UTF-16 units
constexpr std::size_t kLineLength = 30;
constexpr char16_t kEmDash = u'\u2014';

bool IsAddress(std::u16string_view command) {
    return command.size() >= kShortestAddress &&
           std::any_of(std::begin(kSchemes), std::end(kSchemes),
                       [command](auto scheme) { return StartsWithNoCase(command, scheme); });
}

// The system overlooks these at a name's end, and finds a file whose name ends before them.
bool EndsInOverlooked(std::u16string_view path) {
    return path.ends_with(u' ') || path.ends_with(u'.');
}

// How long a front of the command that names a file can be: a name has a limit, and nothing stands
// below a folder that isn't there. Without this a long command would take seconds.
std::size_t LongestFront(std::u16string_view command, const ProgramStarter& files) {
    // A server is no folder, and a step up leads out of a folder that isn't there.
    const bool canAskFolders = !command.starts_with(u"\\\\") && command.find(u"..") == command.npos;
    std::size_t name = 0;
    while (true) {
        const std::size_t slash = std::min(command.find_first_of(kSlashes, name), command.size());
        if (slash - name > kLongestName) {
            return name + kLongestName;
        }
        if (slash == command.size()) {
            return slash;
        }
        const bool isRoot = slash == name || (slash == 2 && command[1] == u':');
        if (canAskFolders && !isRoot && !files.IsFolder(command.substr(0, slash))) {
            return slash;
        }
        name = slash + 1;
    }
}

}  // namespace

CommandParts SplitCommandLine(std::u16string_view command, const ProgramStarter& files) {
    if (IsAddress(command) || files.IsFile(command)) {
        return {command, {}};
    }
    for (std::size_t length = LongestFront(command, files); length > 0; --length) {
        const std::u16string_view front = command.substr(0, length);
        if (!EndsInOverlooked(front) && files.IsFile(front)) {
            return {front, command.substr(length)};
        }
    }
    return {command, {}};
}

std::u16string ProcessedCommandText(const CommandParts& parts) {
    return Concat(u"Processed Command:\n", std::u16string(kLineLength, kEmDash), u"\nPath: [",
                  parts.Path, u"]\nCommand Line: [", parts.Parameters, u"]");
}

void CommandStart::ExecuteCommandLine(WindowHandle owner, std::u16string_view command) {
    const CommandParts parts = SplitCommandLine(command, starter_);
    const auto error = starter_.Start(parts.Path, parts.Parameters);
    if (!error) {
        sounds_.PlayEventSound(EventSound::ProgramLaunched);
        return;
    }
    const std::u16string text =
        Concat(error->Text, u"\n\nCommand: ", command, u"\n\nSource Command: ", command, u"\n\n",
               ProcessedCommandText(parts));
    log_.LogError(text);
    starter_.TellFailure(owner, text, texts_.LoadString(kStrProductName));
}

}  // namespace vbr
