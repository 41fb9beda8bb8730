// SPDX-License-Identifier: MIT
#include "menu/phrase_menu_handler.h"

#include <string_view>
#include <utility>

#include "base/text.h"
#include "menu/extra_commands.h"
#include "menu/history_region.h"
#include "menu/phrase_region.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

constexpr std::int32_t kNoChoice = -1;

// The target needs a moment with the foreground before the text comes.
constexpr std::uint32_t kAfterChoiceMs = 100;

std::optional<Point> PointOf(const WPQuery& query) {
    if (query.PointX == -1 && query.PointY == -1) {
        return std::nullopt;
    }
    return Point{query.PointX, query.PointY};
}

std::int32_t ResultOf(std::uint32_t choice) {
    if (choice == 0) {
        return kNoChoice;
    }
    return ResultOfExtraCommand(choice).value_or(static_cast<std::int32_t>(choice));
}

// Ids of history items in the menu stay right while it is open.
class LockedHistory {
  public:
    explicit LockedHistory(MenuHistory& history) : history_(history) { history_.SetLocked(true); }
    ~LockedHistory() { history_.SetLocked(false); }
    LockedHistory(const LockedHistory&) = delete;
    LockedHistory& operator=(const LockedHistory&) = delete;

  private:
    MenuHistory& history_;
};

}  // namespace

void IDataNeededHander_MenuSelf::ClearFonts() {
    parts_.Log.Write(u"WOW!!! ClearFonts_Internal in IDataNeededHander_MenuSelf");
    parts_.Presenter.ClearFonts();
}

void IDataNeededHander_MenuSelf::OnDataNeeded(const WPQuery& query, WPAnswer&) {
    const LockedHistory lock(parts_.History);
    parts_.Log.Write(Concat(u"IDataNeededHander_MenuSelf::OnDataNeeded lcid=", query.Hkl));
    LogWindows(query);
    selectedText_ = query.SelText;
    hkl_ = query.Hkl;
    // The query may end while the menu is open.
    const WindowHandle target = query.TargetWindow;
    const std::optional<Point> point = PointOf(query);
    PhraseMenu menu = parts_.Guard.Run(kFaultMakeMenu, PhraseMenu(), [this] { return MakeMenu(); });
    const std::uint32_t choice = menu.empty() ? 0 : parts_.Presenter.Show(std::move(menu), point);
    if (choice != 0) {
        parts_.Clock.Sleep(kAfterChoiceMs);
    }
    notice_(ResultOf(choice), target);
}

void IDataNeededHander_MenuSelf::LogWindows(const WPQuery& query) {
    const GuiThreadWindows& windows = query.GuiThreadInfo;
    const std::pair<std::u16string_view, WindowHandle> headed[] = {
        {u"Caret", windows.Caret},     {u"Focus", windows.Focus},
        {u"Active", windows.Active},   {u"Menu", windows.MenuOwner},
        {u"Capture", windows.Capture}, {u"hwndForMenu", query.TargetWindow}};
    for (const auto& [heading, window] : headed) {
        LogWindow(parts_.Log, heading, parts_.StateOf(window));
    }
}

void IDataNeededHander_MenuSelf::RememberCommand(std::uint32_t id) {
    const VBRCommand* record = parts_.Tree.FindCommand(id);
    if (record && !record->IsGroup()) {
        lastCommandId_ = id;
        recent_.Remember(id, RecentCapacity(parts_.Settings.AddLastUsedMenuToBegin_Count));
    }
}

PhraseMenu IDataNeededHander_MenuSelf::MakeMenu() {
    const CVBRSettings& settings = parts_.Settings;
    const PhraseRegionState state{.Input = {selectedText_, clipboardAtHotkey_, LanguageOf(hkl_)},
                                  .LastCommandId = lastCommandId_,
                                  .HoldsLastCommand = [this](const VBRCommand& group) {
                                      return parts_.Tree.GroupHoldsCommand(group, lastCommandId_);
                                  }};
    PhraseMenu menu;
    if (settings.AddLastUsedMenuToBegin) {
        AddRecentRegion(FindRecent(), state, parts_.Items, menu);
        if (!menu.empty()) {
            AddSeparator(menu, parts_.Texts.LoadString(kStrOtherCommands));
        }
    }
    AddPhraseRegion(parts_.Tree.Commands(), state, parts_.Items, menu);
    if (settings.InsertCHIntoMenu) {
        AddClipboardHistoryIntoMenu(true, menu);
    }
    if (!menu.empty()) {
        AddExtraCommands(settings.ExtMenuCommand, settings.InsertCHIntoMenu, selectedText_,
                         parts_.Texts, menu);
    }
    return menu;
}

// An id whose phrase is gone is told once and then forgotten, not told with each menu.
std::vector<const VBRCommand*> IDataNeededHander_MenuSelf::FindRecent() {
    std::vector<const VBRCommand*> found;
    for (const std::uint32_t id : std::vector(recent_.Ids())) {
        const VBRCommand* record = parts_.Tree.FindCommand(id);
        if (record && !record->IsGroup()) {
            found.push_back(record);
        } else {
            recent_.Forget(id);
            parts_.Guard.Report().ReportError(u"ERROR IDataNeededHander_MenuSelf::MakeMenu");
        }
    }
    return found;
}

void IDataNeededHander_MenuSelf::AddClipboardHistoryIntoMenu(bool withTips, PhraseMenu& menu) {
    const HistoryRegionOptions options{parts_.Settings.GetMaxHistoryItemsInMenu(),
                                       parts_.Settings.AppendCHAsSubMenu, withTips};
    parts_.Guard.Run(kFaultAddClipboardHistory, [&] {
        if (options.AsSubMenu && parts_.History.GetCount() > 0) {
            parts_.Log.Write(
                Concat(u"History Sub Menu Text: ",
                       HistorySubMenuLabel(parts_.History.GetCount(), options, parts_.Texts)));
        }
        AddHistoryRegion(parts_.History, options, parts_.Texts, menu);
    });
}

}  // namespace vbr
