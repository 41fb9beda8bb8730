// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fuzzing.h"
#include "macros/command_arguments.h"
#include "macros/command_split.h"
#include "platform/program_starter.h"
#include "shell/command_line.h"

namespace {

constexpr std::u16string_view kOther = u"\uE000";  // a value

// One program and one folder are there.
class Disk : public vbr::ProgramStarter {
  public:
    bool IsFile(std::u16string_view path) const override {
        return path == u"C:\\Tool Box\\tool.exe" || path == u"note.txt";
    }
    bool IsFolder(std::u16string_view path) const override {
        return path == u"C:" || path == u"C:\\Tool Box";
    }
    std::optional<std::u16string> FindProgram(std::u16string_view name) const override {
        return name == u"tool" ? std::optional<std::u16string>(u"C:\\Tool Box\\tool.exe")
                               : std::nullopt;
    }
    std::optional<std::u16string> EnvironmentVariable(std::u16string_view) const override {
        return std::nullopt;
    }
    std::optional<vbr::SystemError> Start(std::u16string_view, std::u16string_view) override {
        return std::nullopt;
    }
    vbr::SystemError FileNotFound() const override { return {}; }
    void TellFailure(vbr::WindowHandle, std::u16string_view, std::u16string_view) override {}
};

// The arguments as a program gets them, by the rules of the platform's C runtime.
std::vector<std::u16string> Arguments(std::u16string_view line) {
    std::vector<std::u16string> arguments;
    std::size_t at = 0;
    while (true) {
        at = std::min(line.find_first_not_of(u" \t", at), line.size());
        if (at == line.size()) {
            return arguments;
        }
        std::u16string& argument = arguments.emplace_back();
        bool quoted = false;
        while (at < line.size() && (quoted || (line[at] != u' ' && line[at] != u'\t'))) {
            const std::size_t behind = std::min(line.find_first_not_of(u'\\', at), line.size());
            const std::size_t slashes = behind - at;
            const bool isQuote = behind < line.size() && line[behind] == u'"';
            argument.append(isQuote ? slashes / 2 : slashes, u'\\');
            at = behind;
            if (isQuote && slashes % 2 != 0) {
                argument += line[at++];
            } else if (isQuote) {
                quoted = !quoted;
                ++at;
            } else if (slashes == 0) {
                argument += line[at++];
            }
        }
    }
}

std::u16string Without(std::u16string text, std::u16string_view signs) {
    std::erase_if(text, [signs](char16_t c) { return signs.find(c) != signs.npos; });
    return text;
}

// A value behind the program stays within its argument, whatever it holds.
void CheckValue(const std::u16string& before, const std::u16string& value,
                const std::u16string& behind) {
    const auto written = [](std::u16string_view front, std::u16string_view with,
                            std::u16string_view back) {
        vbr::CommandText parameters(front);
        parameters.Append(with, true);
        parameters.Append(back, false);
        return Arguments(vbr::ArgumentText(parameters));
    };
    const auto arguments = written(before, value, behind);
    const auto plain = written(before, kOther, behind);
    vbr::Require(arguments.size() == plain.size());
    for (std::size_t i = 0; i < plain.size(); ++i) {
        std::u16string expected = plain[i];
        const std::size_t at = expected.find(kOther);
        if (at != expected.npos) {
            expected.replace(at, 1, value);
        }
        vbr::Require(arguments[i] == expected);
    }
}

void CheckSplit(const std::u16string& before, const std::u16string& value,
                const std::u16string& behind) {
    vbr::CommandText command(before);
    command.Append(value, true);
    command.Append(behind, false);
    Disk disk;
    const vbr::CommandParts parts = vbr::SplitCommandLine(command, disk);
    vbr::Require(!parts.IsThere || !parts.Path.empty() || command.Trimmed().Size() == 0);
    vbr::SplitCommandLine(vbr::CommandText(before), disk);
}

void CheckOwnKeys(const std::u16string& text) {
    const vbr::CVBRCmdLine line(text);
    vbr::Require(!line.Ua() || line.Exit());
    vbr::Require(!line.AsAdmin() || vbr::FindNoCase(text, u"asadmin") != text.npos);
}

}  // namespace

// What stands ahead of a value, the value, what follows it; the whole as the program's own command
// line, too.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CheckOwnKeys(vbr::Utf8ToUtf16(vbr::InputText(data, size)));
    const auto [before, value, behind] = vbr::InputParts<3>(vbr::InputText(data, size));
    CheckSplit(before, value, behind);
    // The phrase's own quotes may be open, or doubled, which programs read in different ways.
    constexpr std::u16string_view kSigns = u"\"\uE000";
    if (!value.empty() && value.find(kOther) == value.npos) {
        CheckValue(Without(before, kSigns), value, Without(behind, kSigns));
    }
    return 0;
}
