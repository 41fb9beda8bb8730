// SPDX-License-Identifier: MIT
#include "editor/phrase_editor.h"

#include <algorithm>
#include <iterator>
#include <system_error>
#include <utility>

#include "base/text.h"
#include "phrases/command_names.h"

namespace vbr {
namespace {

namespace fs = std::filesystem;

constexpr std::u16string_view kNewPhrase = u"New phrase";
constexpr std::u16string_view kBlanks = u" \t\r\n";

// The fields of a form and of the record, one by one.
template <typename Visitor>
void ForEachField(const Visitor& visit) {
    using Form = PhraseForm;
    using Record = VBRCommand;
    visit(&Form::Kind, &Record::DataType);
    visit(&Form::Text, &Record::Cmd);
    visit(&Form::Enabled, &Record::Enabled);
    visit(&Form::TitleOnly, &Record::UseTitleOnly);
    visit(&Form::NeedsSelection, &Record::DisabledIsNoHasSelection);
}

void SetLine(VBRCommand& record, std::uint32_t bit, bool on) {
    record.FlagsMenu = on ? record.FlagsMenu | bit : record.FlagsMenu & ~bit;
}

// Changes in the record what the form changes of `shown`.
void Apply(const PhraseForm& form, const PhraseForm& shown, VBRCommand& record) {
    ForEachField([&](auto value, auto field) {
        if (form.*value != shown.*value) {
            record.*field = form.*value;
        }
    });
    if (form.Title != shown.Title) {
        record.Text = CutUnits(form.Title, kMenuNameMax);
    }
    if (form.Hint != shown.Hint) {
        record.ToolTipText = CutUnits(form.Hint, kHintMax);
    }
    if (form.LineBefore != shown.LineBefore) {
        SetLine(record, kSeparatorBefore, form.LineBefore);
    }
    if (form.LineAfter != shown.LineAfter) {
        SetLine(record, kSeparatorAfter, form.LineAfter);
    }
}

// A title whose file name is no device of Windows, with whatever extension.
std::u16string NameFor(std::u16string_view title) {
    const std::u16string name = ToUpper(MakeFileTitle(title, 1, false, true));
    constexpr std::u16string_view kDevices[] = {u"CON", u"PRN", u"AUX", u"NUL"};
    const bool isNumbered = name.size() == 4 && name[3] >= u'0' && name[3] <= u'9' &&
                            (name.starts_with(u"COM") || name.starts_with(u"LPT"));
    const bool isDevice = isNumbered || std::find(std::begin(kDevices), std::end(kDevices), name) !=
                                            std::end(kDevices);
    return Concat(title, isDevice ? u" phrase" : u"");
}

// A folder's own file holds its place and its lines.
CommandFields FieldsToWrite(const VBRCommand& record, bool isGroup) {
    CommandFields fields = FieldsOf(record);
    if (isGroup) {
        fields.Texts.clear();
    }
    return fields;
}

std::u16string Failed(std::u16string_view what, const fs::path& path, std::u16string_view why) {
    return Concat(what, u"\n", path.u16string(), u"\n", why);
}

std::u16string TextOf(const std::error_code& error) {
    return Utf8ToUtf16(error.message());
}

// Whether the path lies in the folder or is the folder.
bool LiesIn(const fs::path& path, const fs::path& folder) {
    const fs::path inner = path.lexically_normal();
    const fs::path outer = folder.lexically_normal();
    return std::mismatch(outer.begin(), outer.end(), inner.begin(), inner.end()).first ==
           outer.end();
}

const VBRCommand* FindIn(const std::vector<VBRCommand>& list, const fs::path& path) {
    for (const VBRCommand& record : list) {
        if (record.FilePath == path) {
            return &record;
        }
        if (record.IsGroup()) {
            if (const VBRCommand* found = FindIn(*record.Commands, path)) {
                return found;
            }
        }
    }
    return nullptr;
}

}  // namespace

PhraseForm FormOf(const VBRCommand& record) {
    return {.Title = record.Text,
            .Kind = record.DataType,
            .Text = record.Cmd,
            .Hint = record.ToolTipText,
            .Enabled = record.Enabled,
            .TitleOnly = record.UseTitleOnly,
            .NeedsSelection = record.DisabledIsNoHasSelection,
            .LineBefore = (record.FlagsMenu & kSeparatorBefore) != 0,
            .LineAfter = (record.FlagsMenu & kSeparatorAfter) != 0};
}

PhraseForm FormForText(std::u16string_view text) {
    const std::u16string_view said = TrimLeft(text, kBlanks);
    const std::u16string_view line =
        TrimRight(said.substr(0, said.find_first_of(u"\r\n")), kBlanks);
    return {.Title = std::u16string(line.empty() ? kNewPhrase : CutUnits(line, kMenuNameMax)),
            .Text = std::u16string(text)};
}

EditResult PhraseEditor::Load(const fs::path& folder) {
    // Without a separator at its end, as the parents of paths are told.
    root_ = folder.has_filename() ? folder : folder.parent_path();
    std::error_code error;
    if (files_.Store().KindOf(root_) == PathKind::Missing) {
        fs::create_directories(root_, error);
    }
    tree_.LoadTree(root_);
    return {root_, error
                       ? Failed(u"The folder of the phrases can't be made:", folder, TextOf(error))
                       : std::u16string()};
}

const VBRCommand* PhraseEditor::Find(const fs::path& path) const {
    return FindIn(tree_.Commands(), path);
}

EditResult PhraseEditor::Save(const fs::path& path, const PhraseForm& form,
                              const PhraseForm& shown) {
    const VBRCommand* known = Find(path);
    const bool isGroup = known && known->IsGroup();
    const EditResult changed = Change(path, [&](VBRCommand& record, bool isThere) {
        // One that is gone is written whole.
        Apply(form, isThere ? shown : PhraseForm(), record);
    });
    if (!changed) {
        return changed;
    }
    const fs::path renamed =
        path.parent_path() / MakeFileTitle(NameFor(form.Title), 1, false, false);
    return isGroup && renamed != path ? Rename(path, renamed) : Done(path);
}

// A group is called as its folder is.
EditResult PhraseEditor::Rename(const fs::path& path, const fs::path& renamed) {
    const bool onlyCaseChanges =
        EqualsNoCase(path.filename().u16string(), renamed.filename().u16string());
    if (renamed.filename().empty() ||
        (!onlyCaseChanges && files_.Store().KindOf(renamed) != PathKind::Missing)) {
        return {path, Failed(u"The group can't have this name:", renamed, u"")};
    }
    std::error_code error;
    fs::rename(path, renamed, error);
    if (error) {
        return {path, Failed(u"The group can't be renamed:", path, TextOf(error))};
    }
    return Done(renamed);
}

// What the file says by now is changed, not what was read of it before.
EditResult PhraseEditor::Change(const fs::path& path,
                                const std::function<void(VBRCommand&, bool isThere)>& change) {
    const VBRCommand* known = Find(path);
    const bool isGroup = known && known->IsGroup();
    const fs::path file = isGroup ? path / kFolderSelfName : path;
    VBRCommand record;
    const bool isThere = files_.Store().KindOf(file) != PathKind::Missing;
    const CommandReadResult read =
        isThere ? files_.ReadCommandFile(record, file) : CommandReadResult::Ok;
    if (read != CommandReadResult::Ok && !(isGroup && read == CommandReadResult::NoTitle)) {
        return {path, Failed(u"The phrase can't be read, so it is left as it is:", file,
                             DescribeReadResult(read))};
    }
    change(record, isThere);
    const std::u16string failure = files_.WriteFields(file, FieldsToWrite(record, isGroup));
    if (!failure.empty()) {
        return {path, Failed(u"The phrase can't be saved:", file, failure)};
    }
    return {path, {}};
}

EditResult PhraseEditor::AddPhrase(const fs::path& group, const PhraseForm& form) {
    VBRCommand record;
    Apply(form, PhraseForm(), record);
    record.SortID = NextSortId(group);
    record.FilePath = MakeUniquePath(files_.Store(), NameFor(form.Title), group, true, true, true);
    const std::u16string failure = files_.WriteFields(record.FilePath, FieldsOf(record));
    if (!failure.empty()) {
        return {group, Failed(u"The phrase can't be saved:", record.FilePath, failure)};
    }
    return Done(record.FilePath);
}

EditResult PhraseEditor::AddGroup(const fs::path& group, std::u16string_view title) {
    const fs::path folder =
        MakeUniquePath(files_.Store(), NameFor(title), group, false, false, false);
    std::error_code error;
    if (!fs::create_directory(folder, error)) {
        return {group, Failed(u"The group can't be made:", folder, TextOf(error))};
    }
    VBRCommand self;
    self.SortID = NextSortId(group);
    files_.WriteFields(folder / kFolderSelfName, FieldsToWrite(self, true));
    return Done(folder);
}

EditResult PhraseEditor::Delete(const fs::path& path) {
    if (const auto error = recycle_(path)) {
        return {path, Failed(u"This can't be deleted:", path, error->Text)};
    }
    return Done(path.parent_path());
}

EditResult PhraseEditor::Move(const fs::path& path, const fs::path& group) {
    const VBRCommand* record = Find(path);
    if (!record || path.parent_path() == group || LiesIn(group, path)) {
        return {path, {}};
    }
    const bool isGroup = record->IsGroup();
    fs::path moved = group / path.filename();
    if (files_.Store().KindOf(moved) != PathKind::Missing) {
        moved = MakeUniquePath(files_.Store(), record->Text, group, !isGroup, true, !isGroup);
    }
    const std::uint32_t sortId = NextSortId(group);
    std::error_code error;
    fs::rename(path, moved, error);
    if (error) {
        return {path, Failed(u"This can't be moved:", path, TextOf(error))};
    }
    tree_.LoadTree(root_);
    const EditResult placed =
        Change(moved, [sortId](VBRCommand& each, bool) { each.SortID = sortId; });
    return placed ? Done(moved) : placed;
}

EditResult PhraseEditor::Shift(const fs::path& path, bool up) {
    const VBRCommand* record = Find(path);
    if (!record) {
        return {path, {}};
    }
    std::vector<fs::path> order;
    for (const VBRCommand& each : ListOf(path.parent_path())) {
        if (each.IsGroup() == record->IsGroup()) {
            order.push_back(each.FilePath);
        }
    }
    const auto at = std::find(order.begin(), order.end(), path);
    if (up ? at == order.begin() : at + 1 == order.end()) {
        return {path, {}};
    }
    std::iter_swap(at, up ? at - 1 : at + 1);
    // Numbers may be missing or repeat themselves, so all are given anew.
    std::uint32_t sortId = 0;
    for (const fs::path& each : order) {
        ++sortId;
        const VBRCommand* known = Find(each);
        if (known && known->SortID != sortId) {
            const EditResult result =
                Change(each, [sortId](VBRCommand& changed, bool) { changed.SortID = sortId; });
            if (!result) {
                tree_.LoadTree(root_);
                return result;
            }
        }
    }
    return Done(path);
}

fs::path PhraseEditor::GroupOf(const fs::path& path) const {
    const VBRCommand* record = Find(path);
    return !record ? root_ : record->IsGroup() ? path : path.parent_path();
}

const std::vector<VBRCommand>& PhraseEditor::ListOf(const fs::path& group) const {
    const VBRCommand* record = Find(group);
    return record && record->IsGroup() ? *record->Commands : tree_.Commands();
}

std::uint32_t PhraseEditor::NextSortId(const fs::path& group) const {
    std::uint32_t highest = 0;
    for (const VBRCommand& each : ListOf(group)) {
        highest = std::max(highest, each.SortID);
    }
    return highest == 0xFFFFFFFF ? highest : highest + 1;
}

EditResult PhraseEditor::Done(fs::path path) {
    tree_.LoadTree(root_);
    return {std::move(path), {}};
}

}  // namespace vbr
