// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "phrases/command_document.h"
#include "phrases/command_record.h"
#include "platform/file_store.h"
#include "platform/log.h"

namespace vbr {

inline constexpr std::u16string_view kPhraseExtension = u".vellumbridge";
inline constexpr std::u16string_view kFolderSelfName = u"FOLDER_SELF.vellumbridge";

// The file that a record is saved to: FilePath, or FOLDER_SELF.vellumbridge in a group's folder.
std::filesystem::path CommandFileOf(const VBRCommand& record);

// Told about a failed write: the path, the log's error text and the record.
using WriteFailure =
    std::function<void(const std::filesystem::path&, std::u16string_view, const VBRCommand&)>;

// Uses of a phrase that its file doesn't count yet.
struct UncountedUses {
    std::int64_t Count = 0;
    SystemTime LastUtc;
    CommandFields Record;  // what the file should say with them
};

// How the counting of uses in a file ended. Counted: it says what the record says. Other: it said
// something else before, or is gone. Refused: it holds no phrase now. Later: it can't be read or
// written at the moment.
enum class UsageResult { Counted, Other, Refused, Later };

// Reads and writes phrase files. Belongs to no thread.
class CommandFiles {
  public:
    CommandFiles(FileStore& files, Log& log) : files_(files), log_(log) {}

    CommandReadResult ReadCommandFile(VBRCommand& record, const std::filesystem::path& path);

    FileStore& Store() { return files_; }

    // False after logging the error and telling `onFailure`; the old file is then still whole.
    bool WriteCommandFile(const VBRCommand& record, const std::filesystem::path& path,
                          const WriteFailure& onFailure = nullptr);

    // Makes the file say what the fields say. A file that is there keeps all else that it holds;
    // one that can't be read or holds no phrase is left alone. The log's error text, or empty.
    std::u16string WriteFields(const std::filesystem::path& path, const CommandFields& fields);

    // Changes nothing of the file but its figures, which count from what it says now. A file that
    // is gone stays gone. What is not counted leaves a line in the log.
    UsageResult CountUses(const std::filesystem::path& path, const UncountedUses& uses);

  private:
    std::u16string Write(const std::filesystem::path& path, std::string_view xml);
    UsageResult MissFile(const std::filesystem::path& path);

    FileStore& files_;
    Log& log_;
};

}  // namespace vbr
