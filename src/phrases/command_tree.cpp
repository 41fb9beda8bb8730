// SPDX-License-Identifier: MIT
#include "phrases/command_tree.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "base/text.h"
#include "phrases/command_names.h"

namespace vbr {
namespace {

namespace fs = std::filesystem;

bool IsFolder(const fs::path& path) {
    std::error_code ignored;
    return fs::is_directory(path, ignored);
}

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

void Count(const std::vector<VBRCommand>& list, CommandCounts& counts) {
    for (const VBRCommand& record : list) {
        ++counts.Total;
        counts.Enabled += record.IsEnabled() ? 1 : 0;
        if (record.IsGroup()) {
            Count(*record.Commands, counts);
        }
    }
}

bool IsPhraseFile(const fs::path& path) {
    const std::u16string name = path.filename().u16string();
    return EndsWithNoCase(name, kPhraseExtension) && !EqualsNoCase(name, kFolderSelfName);
}

}  // namespace

void CVBRCommandTree::LoadTree(const fs::path& folder) {
    ClearTree();
    const fs::path root = folder.empty() ? rootFolder_ : folder;
    if (!IsFolder(root)) {
        return;
    }
    ReadFolder(root, commands_);
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

void CVBRCommandTree::ReadFolder(const fs::path& folder, std::vector<VBRCommand>& list) {
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const fs::path& path = entry->path();
        std::error_code ignored;
        if (entry->is_directory(ignored)) {
            AddGroup(path, list);
        } else if (IsPhraseFile(path)) {
            AddPhrase(path, list);
        }
    }
    if (error) {
        log_.LogError(Concat(u"Phrase folder not read to its end: ", folder.u16string()));
    }
}

void CVBRCommandTree::AddGroup(const fs::path& folder, std::vector<VBRCommand>& list) {
    VBRCommand group = ReadFolderSelf(folder / kFolderSelfName);
    group.Text = CutUnits(folder.filename().u16string(), kMenuNameMax);
    group.CMDID = ++lastId_;
    group.FilePath = folder;
    group.Commands = std::make_unique<std::vector<VBRCommand>>();
    ReadFolder(folder, *group.Commands);
    list.push_back(std::move(group));
}

VBRCommand CVBRCommandTree::ReadFolderSelf(const fs::path& file) {
    VBRCommand group;
    std::error_code ignored;
    if (!fs::exists(file, ignored)) {
        return group;
    }
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
    return group;
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

CommandCounts CVBRCommandTree::CountCommands() const {
    CommandCounts counts;
    Count(commands_, counts);
    return counts;
}

void CVBRCommandTree::RecordUsage(std::uint32_t id) {
    if (VBRCommand* record = FindCommand(id)) {
        record->AddUsage();
        record->StampDateUsage(clock_.UtcTime());
        SaveCommand(id);
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
            MakeUniquePath(record->Text, parent ? parent->FilePath : rootFolder_, true, true, true);
    }
    saver_.SaveCommandAsync(*record);
}

}  // namespace vbr
