// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "phrases/command_file.h"
#include "phrases/command_tree.h"
#include "platform/system_error.h"

namespace vbr {

// What the user edits of a phrase. Of a group only the title and the lines count.
struct PhraseForm {
    std::u16string Title;
    std::int32_t Kind = kDataTypeText;
    std::u16string Text;
    std::u16string Hint;
    bool Enabled = true;
    bool TitleOnly = false;
    bool NeedsSelection = false;
    bool LineBefore = false;
    bool LineAfter = false;

    bool operator==(const PhraseForm&) const = default;
};

// The kind of the phrase that the path names, as the tree shows it.
PhraseForm FormOf(const VBRCommand& record);

// A phrase for a text: its title is the first line that says something.
PhraseForm FormForText(std::u16string_view text);

// How an edit ended. A failure has a text for the user.
struct EditResult {
    std::filesystem::path Path;  // of what was made or moved, else of what was edited
    std::u16string Failure;

    explicit operator bool() const { return Failure.empty(); }
};

// Edits the user's phrases where they lie. Each edit is on the disk when it returns, and reads the
// tree anew; records are named by their paths. Belongs to one thread.
class PhraseEditor {
  public:
    // Takes a file or a folder with all in it away, where the user can get it back.
    using Recycle = std::function<std::optional<SystemError>(const std::filesystem::path&)>;

    PhraseEditor(CommandFiles& files, CVBRCommandTree& tree, Recycle recycle)
        : files_(files), tree_(tree), recycle_(std::move(recycle)) {}

    // Makes the folder when it isn't there.
    EditResult Load(const std::filesystem::path& folder);
    const CVBRCommandTree& Tree() const { return tree_; }
    // Null when it is gone.
    const VBRCommand* Find(const std::filesystem::path& path) const;

    // Saves what the form changes of `shown`. What others have changed of the rest meanwhile stays,
    // the counts of its uses, and what this program doesn't know. A group's title is the name of
    // its folder.
    EditResult Save(const std::filesystem::path& path, const PhraseForm& form,
                    const PhraseForm& shown);
    // `group` is a folder of the tree; the new one stands last in it.
    EditResult AddPhrase(const std::filesystem::path& group, const PhraseForm& form);
    EditResult AddGroup(const std::filesystem::path& group, std::u16string_view title);
    EditResult Delete(const std::filesystem::path& path);
    // Into another group, the root included, where it stands last. A group can't come into itself.
    EditResult Move(const std::filesystem::path& path, const std::filesystem::path& group);
    // Up or down by one among those of its kind in its group.
    EditResult Shift(const std::filesystem::path& path, bool up);

    // The folder that a new phrase belongs to when this path is selected: the group itself, or that
    // of the phrase.
    std::filesystem::path GroupOf(const std::filesystem::path& path) const;

  private:
    const std::vector<VBRCommand>& ListOf(const std::filesystem::path& group) const;
    std::uint32_t NextSortId(const std::filesystem::path& group) const;
    // The tree stays as it was read.
    EditResult Change(const std::filesystem::path& path,
                      const std::function<void(VBRCommand&, bool isThere)>& change);
    EditResult Rename(const std::filesystem::path& path, const std::filesystem::path& renamed);
    EditResult Done(std::filesystem::path path);

    CommandFiles& files_;
    CVBRCommandTree& tree_;
    Recycle recycle_;
    std::filesystem::path root_;
};

}  // namespace vbr
