// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <vector>

#include "phrases/command_file.h"
#include "phrases/command_record.h"
#include "phrases/command_saver.h"
#include "platform/clock.h"
#include "platform/log.h"

namespace vbr {

struct CommandCounts {
    std::size_t Total = 0;
    std::size_t Enabled = 0;
};

// Sees a record and the group that holds it, null at the root.
using CommandVisitor = std::function<bool(const VBRCommand& record, const VBRCommand* parent)>;

// The user's phrases: a folder is a group, a file with the extension ".vellumbridge" a phrase. In
// each list groups stand before phrases, each kind by ascending SortID. All of it belongs to the
// main thread; a load invalidates every record and id handed out before.
class CVBRCommandTree {
  public:
    CVBRCommandTree(CommandFiles& files, CommandSaver& saver, const Clock& clock, Log& log)
        : files_(files), saver_(saver), clock_(clock), log_(log) {}

    // Replaces the tree by what the folder holds; an empty argument means the last folder. A folder
    // that doesn't exist leaves the tree empty. A bad file is skipped with one log line.
    void LoadTree(const std::filesystem::path& folder);
    void ClearTree();

    const std::vector<VBRCommand>& Commands() const { return commands_; }
    const std::filesystem::path& RootFolder() const { return rootFolder_; }

    // The record with that CMDID, or null. The pointer holds until the next load.
    VBRCommand* FindCommand(std::uint32_t id);
    const VBRCommand* FindCommand(std::uint32_t id) const;

    // The phrase, not a group, whose file that is; null when there is none.
    const VBRCommand* FindByFile(const std::filesystem::path& file) const;

    // The group that holds the record with that id; null at the root or for an unknown id.
    const VBRCommand* FindParent(std::uint32_t id) const;

    // Whether a phrase, not a group, with that id stands anywhere below the group.
    bool GroupHoldsCommand(const VBRCommand& group, std::uint32_t id) const;

    // 1 for an empty tree, else the highest CMDID plus 1.
    std::uint32_t NextCommandId() const { return static_cast<std::uint32_t>(byId_.size()) + 1; }

    // Visits every record, parents before their children; the number of records visited. False from
    // the visitor ends the walk of the list it stands in, and of nothing else.
    std::size_t WalkCommands(const CommandVisitor& visitor) const;

    std::size_t CountGroups() const;
    CommandCounts CountCommands() const;

    // Counts one use of the phrase and stamps the date, in its file too, which otherwise stays as
    // it is. An unknown id does nothing.
    void RecordUsage(std::uint32_t id);

    // Saves the record; one without a file gets a new path in its parent's folder first. What the
    // reader doesn't know of a file that is there stays in it.
    void SaveCommand(std::uint32_t id);

  private:
    // What the folder says of itself goes into `group`, what it holds into the list.
    void ReadFolder(const std::filesystem::path& folder, VBRCommand& group,
                    std::vector<VBRCommand>& list);
    void AddGroup(const std::filesystem::path& folder, std::vector<VBRCommand>& list);
    void ReadFolderSelf(const std::filesystem::path& file, VBRCommand& group);
    void AddPhrase(const std::filesystem::path& file, std::vector<VBRCommand>& list);
    void LogSkipped(const std::filesystem::path& file, CommandReadResult reason);
    void IndexRecords(std::vector<VBRCommand>& list, VBRCommand* parent);

    struct IndexEntry {
        VBRCommand* Record = nullptr;
        VBRCommand* Parent = nullptr;  // null at the root
    };

    CommandFiles& files_;
    CommandSaver& saver_;
    const Clock& clock_;
    Log& log_;
    std::vector<VBRCommand> commands_;
    std::vector<IndexEntry> byId_;  // the record with id n stands at n - 1
    std::uint32_t lastId_ = 0;
    std::filesystem::path rootFolder_;
    std::vector<std::u16string> way_;  // identities of the folders from the root to where a walk is
};

}  // namespace vbr
