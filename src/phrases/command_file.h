// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "phrases/command_record.h"
#include "platform/file_store.h"
#include "platform/log.h"

namespace vbr {

inline constexpr std::u16string_view kPhraseExtension = u".vellumbridge";
inline constexpr std::u16string_view kFolderSelfName = u"FOLDER_SELF.vellumbridge";

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

// The phrase file of a record: XML in UTF-8 without a mark, lines ended by CR LF, texts escaped so
// that ParseCommand gives them back unit for unit.
std::string CommandToXml(const VBRCommand& record);

// The file that a record is saved to: FilePath, or FOLDER_SELF.vellumbridge in a group's folder.
std::filesystem::path CommandFileOf(const VBRCommand& record);

// Told about a failed write: the path, the log's error text and the record.
using WriteFailure =
    std::function<void(const std::filesystem::path&, std::u16string_view, const VBRCommand&)>;

// Reads and writes phrase files.
class CommandFiles {
  public:
    CommandFiles(FileStore& files, Log& log) : files_(files), log_(log) {}

    CommandReadResult ReadCommandFile(VBRCommand& record, const std::filesystem::path& path);

    FileStore& Store() { return files_; }

    // False after logging the error and telling `onFailure`; the old file is then still whole.
    bool WriteCommandFile(const VBRCommand& record, const std::filesystem::path& path,
                          const WriteFailure& onFailure = nullptr);

    // Writes a text made by CommandToXml; the log's error text, empty for success.
    std::u16string WriteCommandText(const std::filesystem::path& path, std::string_view xml);

  private:
    FileStore& files_;
    Log& log_;
};

}  // namespace vbr
