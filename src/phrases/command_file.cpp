// SPDX-License-Identifier: MIT
#include "phrases/command_file.h"

#include <optional>

#include "base/text.h"

namespace vbr {

std::filesystem::path CommandFileOf(const VBRCommand& record) {
    return record.IsGroup() ? record.FilePath / kFolderSelfName : record.FilePath;
}

CommandReadResult CommandFiles::ReadCommandFile(VBRCommand& record,
                                                const std::filesystem::path& path) {
    const std::optional<std::string> bytes = files_.Read(path);
    if (!bytes || bytes->empty()) {
        return CommandReadResult::Unreadable;
    }
    return ParseCommand(record, *bytes);
}

bool CommandFiles::WriteCommandFile(const VBRCommand& record, const std::filesystem::path& path,
                                    const WriteFailure& onFailure) {
    const std::u16string error = WriteFields(path, FieldsOf(record));
    if (error.empty()) {
        return true;
    }
    if (onFailure) {
        onFailure(path, error, record);
    }
    return false;
}

std::u16string CommandFiles::WriteFields(const std::filesystem::path& path,
                                         const CommandFields& fields) {
    const std::optional<std::string> there = files_.Read(path);
    if (there ? there->empty() : files_.KindOf(path) == PathKind::Missing) {
        return Write(path, CommandToXml(fields));
    }
    std::string xml = there.value_or("");
    const CommandReadResult result =
        there ? EditCommand(xml, fields) : CommandReadResult::Unreadable;
    if (result != CommandReadResult::Ok) {
        const std::u16string error = Concat(u"ERROR: phrase file left as it is: ", path.u16string(),
                                            u": ", DescribeReadResult(result));
        log_.Write(error);
        return error;
    }
    return xml == there ? std::u16string() : Write(path, xml);
}

UsageResult CommandFiles::CountUses(const std::filesystem::path& path, const UncountedUses& uses) {
    std::string xml = files_.Read(path).value_or("");
    if (xml.empty()) {
        return MissFile(path);
    }
    VBRCommand now;
    const CommandReadResult result = EditUsage(xml, uses.Count, uses.LastUtc, now);
    if (result != CommandReadResult::Ok) {
        log_.LogError(Concat(u"Use not counted, the file holds no phrase now: ", path.u16string(),
                             u": ", DescribeReadResult(result)));
        return UsageResult::Refused;
    }
    if (!Write(path, xml).empty()) {
        return UsageResult::Later;
    }
    return FieldsOf(now) == uses.Record ? UsageResult::Counted : UsageResult::Other;
}

// Without its folder the file may be on a drive that is away.
UsageResult CommandFiles::MissFile(const std::filesystem::path& path) {
    if (files_.KindOf(path) == PathKind::Missing &&
        files_.KindOf(path.parent_path()) == PathKind::Folder) {
        log_.LogError(Concat(u"Use not counted, the phrase file is gone: ", path.u16string()));
        return UsageResult::Other;
    }
    log_.LogError(Concat(u"Use not counted yet: ", path.u16string(), u": ",
                         DescribeReadResult(CommandReadResult::Unreadable)));
    return UsageResult::Later;
}

std::u16string CommandFiles::Write(const std::filesystem::path& path, std::string_view xml) {
    std::u16string error;
    if (xml.empty()) {
        error = u"ERROR: cannot create XML for command";
    } else if (const std::optional<SystemError> failure = files_.Replace(path, xml)) {
        error = Concat(u"ERROR: code ", failure->Code, u", ", failure->Text);
    }
    if (!error.empty()) {
        log_.Write(error);
    }
    return error;
}

}  // namespace vbr
