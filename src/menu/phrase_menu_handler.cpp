// SPDX-License-Identifier: MIT
#include "menu/phrase_menu_handler.h"

#include <string_view>
#include <utility>

#include "base/text.h"
#include "menu/extra_commands.h"
#include "menu/history_region.h"
#include "menu/menu_numbers.h"
#include "menu/phrase_region.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

// The macros of the clipboard's text, and no others, have this in their names.
constexpr std::u16string_view kPartOfClipboardMacros = u"CLIPBOARD";

bool MayAskForClipboard(std::u16string_view text, bool isFormatted) {
    return FindText(text, isFormatted ? u"%" : kPartOfClipboardMacros) != text.npos;
}

std::optional<Point> PointOf(const WPQuery& query) {
    if (query.PointX == -1 && query.PointY == -1) {
        return std::nullopt;
    }
    return Point{query.PointX, query.PointY};
}

// The item that can be chosen by that number.
const CMenuItemInfo* FindByNumber(const PhraseMenu& menu, std::int64_t number) {
    for (const PhraseMenuItem& item : menu) {
        const bool isChoice = !item.IsPopup() && !item.IsSeparator() && !item.Grayed;
        if (isChoice && number > 0 && item.Info.CommandId == number) {
            return &item.Info;
        }
        if (const CMenuItemInfo* found = FindByNumber(item.Children, number)) {
            return found;
        }
    }
    return nullptr;
}

// Places of history items in the menu stay right while it is open.
class LockedHistory {
  public:
    explicit LockedHistory(QueueHistory& history) : history_(history) { history_.SetLocked(true); }
    ~LockedHistory() { history_.SetLocked(false); }
    LockedHistory(const LockedHistory&) = delete;
    LockedHistory& operator=(const LockedHistory&) = delete;

  private:
    QueueHistory& history_;
};

}  // namespace

void IDataNeededHander_MenuSelf::ClearFonts() {
    with_.Log.Write(u"WOW!!! ClearFonts_Internal in IDataNeededHander_MenuSelf");
    with_.Presenter.ClearFonts();
}

MenuChoice IDataNeededHander_MenuSelf::OnDataNeeded(const WPQuery& query, WPAnswer&) {
    const LockedHistory lock(with_.History);
    with_.Log.Write(Concat(u"IDataNeededHander_MenuSelf::OnDataNeeded lcid=", query.Hkl));
    LogWindows(query);
    selectedText_ = query.SelText;
    hkl_ = query.Hkl;
    // The query may end while the menu is open.
    const std::optional<Point> point = PointOf(query);
    PhraseMenu menu = with_.Guard.Run(kFaultMakeMenu, PhraseMenu(), [this] { return MakeMenu(); });
    const MenuSubject chosen =
        menu.empty() ? MenuSubject() : with_.Presenter.Show(std::move(menu), point);
    return ChoiceOf(chosen);
}

MenuChoice IDataNeededHander_MenuSelf::ChoiceInMenu(const WPQuery& query, std::int64_t number) {
    selectedText_ = query.SelText;
    hkl_ = query.Hkl;
    const PhraseMenu menu =
        with_.Guard.Run(kFaultMakeMenu, PhraseMenu(), [this] { return MakeMenu(); });
    const CMenuItemInfo* item = FindByNumber(menu, number);
    return item ? ChoiceOf(item->Subject) : MenuChoice();
}

MenuChoice IDataNeededHander_MenuSelf::ChoiceOf(const MenuSubject& subject) const {
    switch (subject.Kind) {
        case MenuSubjectKind::Phrase: {
            const VBRCommand* record = with_.Tree.FindCommand(subject.Number);
            return record && !record->IsGroup() ? MenuChoice(record->FilePath) : MenuChoice();
        }
        case MenuSubjectKind::HistoryItem:
            return ClipId{subject.Number};
        case MenuSubjectKind::ExtraCommand:
            if (const auto result = ResultOfExtraCommand(subject.Number)) {
                return *result;
            }
            return {};
        default:
            return {};
    }
}

// A phrase goes before a history item with the same number.
MenuChoice IDataNeededHander_MenuSelf::ChoiceOfNumber(std::uint32_t number) const {
    const MenuChoice phrase = ChoiceOf({MenuSubjectKind::Phrase, number});
    if (!std::holds_alternative<std::monostate>(phrase) || number < kFirstHistoryItem) {
        return phrase;
    }
    const std::size_t index = number - kFirstHistoryItem;
    return index < with_.History.GetCount() ? MenuChoice(ClipId{with_.History.IdOf(index)})
                                            : MenuChoice();
}

DeliveryContext IDataNeededHander_MenuSelf::Context() const {
    return {.ClipboardText = clipboardAtHotkey_,
            .SelText = selectedText_,
            .Language = LanguageOf(hkl_),
            .MaySwitchLayout = IsAllow_SwitchLayout()};
}

bool IDataNeededHander_MenuSelf::AsksForClipboard() const {
    bool asks = false;
    with_.Tree.WalkCommands([&asks](const VBRCommand& record, const VBRCommand*) {
        // Formatting may stand within a token.
        asks = asks || MayAskForClipboard(record.Cmd, record.DataType == kDataTypeRtf);
        return !asks;
    });
    return asks;
}

void IDataNeededHander_MenuSelf::LogWindows(const WPQuery& query) {
    const GuiThreadWindows& windows = query.GuiThreadInfo;
    const std::pair<std::u16string_view, WindowHandle> headed[] = {
        {u"Caret", windows.Caret},     {u"Focus", windows.Focus},
        {u"Active", windows.Active},   {u"Menu", windows.MenuOwner},
        {u"Capture", windows.Capture}, {u"hwndForMenu", query.TargetWindow}};
    for (const auto& [heading, window] : headed) {
        LogWindow(with_.Log, heading, with_.StateOf(window));
    }
}

void IDataNeededHander_MenuSelf::RememberCommand(const std::filesystem::path& file) {
    if (with_.Tree.FindByFile(file)) {
        lastFile_ = file;
        recent_.Remember(file, RecentCapacity(with_.Settings.AddLastUsedMenuToBegin_Count));
    }
}

void IDataNeededHander_MenuSelf::ForgetMissing() {
    for (const std::filesystem::path& file : std::vector(recent_.Files())) {
        if (!with_.Tree.FindByFile(file)) {
            recent_.Forget(file);
        }
    }
}

PhraseMenu IDataNeededHander_MenuSelf::MakeMenu() {
    const CVBRSettings& settings = with_.Settings;
    const VBRCommand* last = with_.Tree.FindByFile(lastFile_);
    const std::uint32_t lastId = last ? last->CMDID : 0;
    const PhraseRegionState state{.Input = {selectedText_, clipboardAtHotkey_, LanguageOf(hkl_)},
                                  .LastCommandId = lastId,
                                  .HoldsLastCommand = [this, lastId](const VBRCommand& group) {
                                      return with_.Tree.GroupHoldsCommand(group, lastId);
                                  }};
    PhraseMenu menu;
    if (settings.AddLastUsedMenuToBegin) {
        AddRecentRegion(FindRecent(), state, with_.Items, menu);
        if (!menu.empty()) {
            AddSeparator(menu, with_.Texts.LoadString(kStrOtherCommands));
        }
    }
    AddPhraseRegion(with_.Tree.Commands(), state, with_.Items, menu);
    if (settings.InsertCHIntoMenu) {
        AddClipboardHistoryIntoMenu(true, menu);
    }
    if (!menu.empty()) {
        AddExtraCommands(settings.ExtMenuCommand, settings.InsertCHIntoMenu, selectedText_,
                         with_.Texts, menu);
    }
    TellNumbersApart(menu);
    return menu;
}

// A phrase that is gone is told once and then forgotten, not told with each menu.
std::vector<const VBRCommand*> IDataNeededHander_MenuSelf::FindRecent() {
    std::vector<const VBRCommand*> found;
    for (const std::filesystem::path& file : std::vector(recent_.Files())) {
        if (const VBRCommand* record = with_.Tree.FindByFile(file)) {
            found.push_back(record);
        } else {
            recent_.Forget(file);
            with_.Guard.Report().ReportError(u"ERROR IDataNeededHander_MenuSelf::MakeMenu");
        }
    }
    return found;
}

void IDataNeededHander_MenuSelf::AddClipboardHistoryIntoMenu(bool withTips, PhraseMenu& menu) {
    const HistoryRegionOptions options{with_.Settings.GetMaxHistoryItemsInMenu(),
                                       with_.Settings.AppendCHAsSubMenu, withTips};
    with_.Guard.Run(kFaultAddClipboardHistory, [&] {
        if (options.AsSubMenu && with_.History.GetCount() > 0) {
            with_.Log.Write(
                Concat(u"History Sub Menu Text: ",
                       HistorySubMenuLabel(with_.History.GetCount(), options, with_.Texts)));
        }
        AddHistoryRegion(with_.History, options, with_.Texts, menu);
    });
}

}  // namespace vbr
