// SPDX-License-Identifier: MIT
#include "macros/command_split.h"

#include <algorithm>
#include <optional>

#include "macros/command_address.h"
#include "macros/command_arguments.h"

namespace vbr {
namespace {

constexpr char16_t kQuote = u'"';
constexpr std::u16string_view kSlashes = u"\\/";
constexpr std::u16string_view kBlanks = u" \t\r\n";
constexpr std::u16string_view kStepUp = u"..";
constexpr std::size_t kLongestName = 255;  // of a file or folder, in UTF-16 units
constexpr std::size_t kLongestPath = 260;

bool Holds(std::u16string_view signs, char16_t c) {
    return signs.find(c) != signs.npos;
}

// The system overlooks these at a name's end, and finds a file whose name ends before them.
bool EndsInOverlooked(std::u16string_view path) {
    return path.ends_with(u' ') || path.ends_with(u'.');
}

std::u16string WithBackslashes(std::u16string path) {
    std::replace(path.begin(), path.end(), u'/', u'\\');
    return path;
}

// Behind the server's name of a network path, else 0.
std::size_t BeginOfShare(std::u16string_view path) {
    const bool isOnServer = path.size() > 1 && Holds(kSlashes, path[0]) && Holds(kSlashes, path[1]);
    const std::size_t slash = isOnServer ? path.find_first_of(kSlashes, 2) : path.npos;
    return slash == path.npos ? 0 : slash + 1;
}

// How long a front of the command that names a file can be: a name has a limit, and nothing stands
// below a folder that isn't there. Without this a long command would take seconds.
std::size_t LongestFront(std::u16string_view command, const ProgramStarter& files) {
    const std::size_t share = BeginOfShare(command);
    std::size_t name = share;
    while (true) {
        const std::size_t slash = std::min(command.find_first_of(kSlashes, name), command.size());
        if (slash - name > kLongestName) {
            return name + kLongestName;
        }
        if (slash == command.size()) {
            return slash;
        }
        const bool isRoot = slash == name || command[slash - 1] == u':';
        if (!isRoot && !files.IsFolder(command.substr(0, slash))) {
            if (share > 0 && name == share) {
                return 0;  // each further look might wait for the server
            }
            // A step up leads out of a folder that isn't there.
            const bool mayLeave = command.find(kStepUp, slash) != command.npos;
            return std::min(command.size(), mayLeave ? slash + kLongestPath : slash);
        }
        name = slash + 1;
    }
}

CommandParts NotThere(const CommandText& line) {
    return {line.Text(), {}, false};
}

CommandParts PartsOf(std::u16string path, const CommandText& parameters) {
    std::u16string text =
        ArgumentText(IsReadByCmd(path, parameters) ? WithoutCmdSigns(parameters) : parameters);
    return {std::move(path), std::move(text)};
}

// The address, file or folder that the text as a whole names. What the phrase wrote may also be a
// program's name, or something that only the shell knows.
std::optional<std::u16string> WholePath(const CommandText& whole, const ProgramStarter& files) {
    if (IsAddress(whole.Text())) {
        return AddressText(whole);
    }
    std::u16string name = whole.Text();
    std::erase(name, kQuote);  // no name has one, and a copied path may
    if (files.IsFile(name) || files.IsFolder(name)) {
        return WithBackslashes(std::move(name));
    }
    // The shell would open the current folder for nothing.
    if (whole.HasValue() || name.empty()) {
        return std::nullopt;
    }
    return files.FindProgram(name).value_or(name);
}

// A quoted front, and what follows it up to a blank when it is only the path's beginning.
CommandParts SplitQuoted(const CommandText& line, const ProgramStarter& files) {
    const std::u16string_view text = line.Text();
    std::size_t close = 1;
    while (close < text.size() && !line.Wrote(close, kQuote)) {
        ++close;
    }
    CommandText path = line.Part(1, close);
    std::size_t rest = std::min(close + 1, text.size());
    if (rest < text.size() && !line.IsValue(rest) && Holds(kSlashes, text[rest])) {
        const std::size_t end = std::min(text.find_first_of(u" \t\"", rest), text.size());
        for (; rest < end; ++rest) {
            path.Append(text.substr(rest, 1), line.IsValue(rest));
        }
    }
    auto place = WholePath(path.Trimmed(), files);
    return place ? PartsOf(std::move(*place), line.Part(rest)) : NotThere(line);
}

// Whether a path may end at the place: not within a value, nor with text of the phrase right
// behind.
bool MayEndAt(const CommandText& line, std::size_t end) {
    if (end == line.Size()) {
        return true;
    }
    const std::u16string_view text = line.Text();
    return !line.IsValue(end) && !EndsInOverlooked(text.substr(0, end)) &&
           (!line.IsValue(end - 1) || Holds(kBlanks, text[end]));
}

// The longest front with an end from `from` to `to` that is a file; 0 when there is none.
std::size_t FileFront(const CommandText& line, std::size_t from, std::size_t to,
                      const ProgramStarter& files) {
    const std::u16string_view text = line.Text();
    for (std::size_t end = to; end >= from && end > 0; --end) {
        const std::u16string_view front = text.substr(0, end);
        if (MayEndAt(line, end) &&
            (files.IsFile(front) || (end == text.size() && files.IsFolder(front)))) {
            return end;
        }
    }
    return 0;
}

// The first word as a program's name, when the phrase wrote all of it.
std::optional<CommandParts> SplitName(const CommandText& line, const ProgramStarter& files) {
    const std::size_t end = std::min(line.Text().find_first_of(kBlanks), line.Size());
    auto program =
        line.HasValue(0, end) ? std::nullopt : files.FindProgram(line.Text().substr(0, end));
    return program ? std::optional(PartsOf(std::move(*program), line.Part(end))) : std::nullopt;
}

// What the phrase wrote ahead of its first value decides first; so no value changes the program.
CommandParts SplitBare(const CommandText& line, const ProgramStarter& files) {
    const std::size_t limit = LongestFront(line.Text(), files);
    for (std::size_t from = 0;; from = line.FindWritten(line.FindValue(from))) {
        const std::size_t to = line.FindValue(from);
        if (const std::size_t end = FileFront(line, from, std::min(to, limit), files)) {
            return PartsOf(WithBackslashes(line.Text().substr(0, end)), line.Part(end));
        }
        if (from == 0) {
            if (auto parts = SplitName(line, files)) {
                return *parts;
            }
        }
        if (to == line.Size()) {
            const bool mayBeName = line.Text().find(kQuote) == std::u16string::npos;
            return {line.Text(), {}, mayBeName && !line.HasValue()};
        }
    }
}

}  // namespace

CommandParts SplitCommandLine(const CommandText& command, const ProgramStarter& files) {
    const CommandText line = WithEnvironment(command, files).Trimmed();
    if (line.Size() == 0) {
        return NotThere(line);
    }
    if (line.Wrote(0, kQuote)) {
        return SplitQuoted(line, files);
    }
    if (IsAddress(line.Text()) || line.FindWritten(0) == line.Size()) {
        auto path = WholePath(line, files);
        return path ? CommandParts{std::move(*path), {}} : NotThere(line);
    }
    return SplitBare(line, files);
}

}  // namespace vbr
