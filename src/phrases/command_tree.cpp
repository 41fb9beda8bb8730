// SPDX-License-Identifier: MIT
#include "phrases/command_tree.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "phrases/command_names.h"

namespace vbr {
namespace {

namespace fs = std::filesystem;

bool ComesBefore(const VBRCommand& a, const VBRCommand& b) {
    return a.IsGroup() != b.IsGroup() ? a.IsGroup() : a.SortID < b.SortID;
}

void SortTree(std::vector<VBRCommand>& list) {
    std::stable_sort(list.begin(), list.end(), ComesBefore);
    for (VBRCommand& record : list) {
        if (record.IsGroup()) {
            SortTree(*record.Commands);
        }
    }
}

// Counts a list and all below it; whether any of its records is enabled.
bool Count(const std::vector<VBRCommand>& list, CommandCounts& counts) {
    bool anyEnabled = false;
    for (const VBRCommand& record : list) {
        const bool enabled = record.IsGroup() ? Count(*record.Commands, counts) : record.Enabled;
        ++counts.Total;
        counts.Enabled += enabled ? 1 : 0;
        anyEnabled = anyEnabled || enabled;
    }
    return anyEnabled;
}

std::size_t Walk(const std::vector<VBRCommand>& list, const VBRCommand* parent,
                 const CommandVisitor& visitor) {
    std::size_t visited = 0;
    for (const VBRCommand& record : list) {
        ++visited;
        if (!visitor(record, parent)) {
            break;
        }
        if (record.IsGroup()) {
            visited += Walk(*record.Commands, &record, visitor);
        }
    }
    return visited;
}

}  // namespace

void CVBRCommandTree::LoadTree(const fs::path& folder) {
    ClearTree();
    const fs::path root = folder.empty() ? rootFolder_ : folder;
    if (files_.Store().KindOf(root) != PathKind::Folder) {
        return;
    }
    VBRCommand ignored;  // the root has no record of its own
    ReadFolder(root, ignored, commands_);
    SortTree(commands_);
    byId_.resize(lastId_);
    IndexRecords(commands_, nullptr);
    rootFolder_ = root;
}

void CVBRCommandTree::ClearTree() {
    commands_.clear();
    byId_.clear();
    lastId_ = 0;
}

void CVBRCommandTree::ReadFolder(const fs::path& folder, VBRCommand& group,
                                 std::vector<VBRCommand>& list) {
    const std::u16string identity = files_.Store().FolderIdentity(folder);
    if (!identity.empty() && std::find(way_.begin(), way_.end(), identity) != way_.end()) {
        log_.LogError(Concat(u"Phrase folder skipped, it leads back to a folder above it: ",
                             folder.u16string()));
        return;
    }
    way_.push_back(identity);
    std::vector<FolderEntry> entries;
    const std::optional<SystemError> error = files_.Store().List(folder, entries);
    for (const FolderEntry& entry : entries) {
        if (!IsValidUtf16(entry.Name)) {
            log_.LogError(
                Concat(u"Skipped in the phrase folder, its name is no text: ", entry.Name));
        } else if (entry.Kind == PathKind::Folder) {
            AddGroup(folder / entry.Name, list);
        } else if (EqualsNoCase(entry.Name, kFolderSelfName)) {
            ReadFolderSelf(folder / entry.Name, group);
        } else if (EndsWithNoCase(entry.Name, kPhraseExtension)) {
            AddPhrase(folder / entry.Name, list);
        }
    }
    way_.pop_back();
    if (error) {
        log_.LogError(
            Concat(u"Phrase folder not read to its end: ", folder.u16string(), u": ", error->Text));
    }
}

void CVBRCommandTree::AddGroup(const fs::path& folder, std::vector<VBRCommand>& list) {
    VBRCommand group;
    group.Text = CutUnits(folder.filename().u16string(), kMenuNameMax);
    group.CMDID = ++lastId_;
    group.FilePath = folder;
    group.Commands = std::make_unique<std::vector<VBRCommand>>();
    ReadFolder(folder, group, *group.Commands);
    list.push_back(std::move(group));
}

void CVBRCommandTree::ReadFolderSelf(const fs::path& file, VBRCommand& group) {
    VBRCommand stored;
    const CommandReadResult result = files_.ReadCommandFile(stored, file);
    if (result != CommandReadResult::Ok && result != CommandReadResult::NoTitle) {
        LogSkipped(file, result);
    }
    group.SortID = stored.SortID;
    group.FlagsMenu = stored.FlagsMenu;
    group.UsageCount = stored.UsageCount;
    group.DisabledIsNoHasSelection = stored.DisabledIsNoHasSelection;
    group.UseTitleOnly = stored.UseTitleOnly;
}

void CVBRCommandTree::AddPhrase(const fs::path& file, std::vector<VBRCommand>& list) {
    VBRCommand phrase;
    const CommandReadResult result = files_.ReadCommandFile(phrase, file);
    if (result != CommandReadResult::Ok) {
        LogSkipped(file, result);
        return;
    }
    phrase.CMDID = ++lastId_;
    phrase.FilePath = file;
    list.push_back(std::move(phrase));
}

void CVBRCommandTree::LogSkipped(const fs::path& file, CommandReadResult reason) {
    log_.LogError(
        Concat(u"Phrase file skipped: ", file.u16string(), u": ", DescribeReadResult(reason)));
}

void CVBRCommandTree::IndexRecords(std::vector<VBRCommand>& list, VBRCommand* parent) {
    for (VBRCommand& record : list) {
        byId_[record.CMDID - 1] = {&record, parent};
        if (record.IsGroup()) {
            IndexRecords(*record.Commands, &record);
        }
    }
}

VBRCommand* CVBRCommandTree::FindCommand(std::uint32_t id) {
    return id >= 1 && id <= byId_.size() ? byId_[id - 1].Record : nullptr;
}

const VBRCommand* CVBRCommandTree::FindCommand(std::uint32_t id) const {
    return id >= 1 && id <= byId_.size() ? byId_[id - 1].Record : nullptr;
}

const VBRCommand* CVBRCommandTree::FindByFile(const fs::path& file) const {
    const auto found = std::find_if(byId_.begin(), byId_.end(), [&file](const IndexEntry& entry) {
        return !entry.Record->IsGroup() && entry.Record->FilePath.native() == file.native();
    });
    return found == byId_.end() || file.empty() ? nullptr : found->Record;
}

const VBRCommand* CVBRCommandTree::FindParent(std::uint32_t id) const {
    return id >= 1 && id <= byId_.size() ? byId_[id - 1].Parent : nullptr;
}

bool CVBRCommandTree::GroupHoldsCommand(const VBRCommand& group, std::uint32_t id) const {
    const VBRCommand* record = FindCommand(id);
    if (!record || record->IsGroup()) {
        return false;
    }
    const VBRCommand* above = FindParent(id);
    while (above && above != &group) {
        above = FindParent(above->CMDID);
    }
    return above != nullptr;
}

std::size_t CVBRCommandTree::WalkCommands(const CommandVisitor& visitor) const {
    return Walk(commands_, nullptr, visitor);
}

std::size_t CVBRCommandTree::CountGroups() const {
    std::size_t groups = 0;
    WalkCommands([&groups](const VBRCommand& record, const VBRCommand*) {
        groups += record.IsGroup() ? 1 : 0;
        return true;
    });
    return groups;
}

CommandCounts CVBRCommandTree::CountCommands() const {
    CommandCounts counts;
    Count(commands_, counts);
    return counts;
}

void CVBRCommandTree::RecordUsage(std::uint32_t id) {
    VBRCommand* record = FindCommand(id);
    if (!record) {
        return;
    }
    record->AddUsage();
    record->StampDateUsage(clock_.UtcTime());
    if (record->IsGroup() || record->FilePath.empty()) {
        SaveCommand(id);
    } else {
        saver_.SaveUsageAsync(*record);
    }
}

void CVBRCommandTree::SaveCommand(std::uint32_t id) {
    VBRCommand* record = FindCommand(id);
    if (!record) {
        return;
    }
    if (record->FilePath.empty()) {
        const VBRCommand* parent = byId_[id - 1].Parent;
        record->FilePath =
            MakeUniquePath(files_.Store(), record->Text, parent ? parent->FilePath : rootFolder_,
                           true, true, true);
    }
    saver_.SaveCommandAsync(*record);
}

}  // namespace vbr
