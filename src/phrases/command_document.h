// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "phrases/command_record.h"

namespace vbr {

inline constexpr std::size_t kMenuNameMax = 60;  // UTF-16 units
inline constexpr std::size_t kHintMax = 512;

// How the reading of a phrase file ended. Only Ok gives a phrase; NoTitle has stored the
// attributes, which is all that a folder's own file holds.
enum class CommandReadResult { Ok, NoTitle, Unreadable, NotUtf8, NotXml, TooMuchMarkup };

// The reason for a log line; empty for Ok.
std::u16string_view DescribeReadResult(CommandReadResult result);

// Fills an initialised record from the text of a phrase file: a UTF-8 XML document with the root
// element VBRCommand. FilePath and CMDID stay as they are.
CommandReadResult ParseCommand(VBRCommand& record, const std::string& xml);

// What a record says in its phrase file, by the names and in the order that it has there.
struct CommandFields {
    // Without a value the attribute doesn't stand in the file.
    std::vector<std::pair<std::string, std::optional<std::string>>> Attributes;
    std::vector<std::pair<std::string, std::u16string>> Texts;  // none for a group

    bool operator==(const CommandFields&) const = default;
};

CommandFields FieldsOf(const VBRCommand& record);

// The phrase file of a record: XML in UTF-8 without a mark, lines ended by CR LF, texts escaped so
// that ParseCommand gives them back unit for unit.
std::string CommandToXml(const CommandFields& fields);
inline std::string CommandToXml(const VBRCommand& record) {
    return CommandToXml(FieldsOf(record));
}

// Puts the fields into the text of a phrase file that is there. What says the same already stays as
// it is written, and so does everything that the reader doesn't know. On a result other than Ok
// nothing is changed.
CommandReadResult EditCommand(std::string& xml, const CommandFields& fields);

// Puts further uses, the last at that time, into the text of a phrase's file, and nothing else;
// `record` is then what the file says. On a result other than Ok nothing is changed.
CommandReadResult EditUsage(std::string& xml, std::int64_t uses, const SystemTime& utc,
                            VBRCommand& record);

}  // namespace vbr
