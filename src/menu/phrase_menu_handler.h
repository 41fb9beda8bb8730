// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <variant>

#include "diagnostics/guarded_section.h"
#include "diagnostics/window_entries.h"
#include "exchange/answer.h"
#include "exchange/query.h"
#include "menu/menu_item_info.h"
#include "menu/phrase_item.h"
#include "menu/queue_history.h"
#include "menu/recent_commands.h"
#include "phrases/command_tree.h"
#include "platform/log.h"
#include "platform/strings.h"
#include "platform/system_info.h"
#include "settings/settings.h"

namespace vbr {

// Shows a menu in front of the target and gives the foreground back when it has closed.
class MenuPresenter {
  public:
    virtual ~MenuPresenter() = default;

    // Runs the menu at the point, or at the mouse cursor; what the chosen item stands for.
    virtual MenuSubject Show(PhraseMenu menu, std::optional<Point> at) = 0;
    virtual bool IsShown() const = 0;
    // The user's fonts have changed: they are made anew for the next menu.
    virtual void ClearFonts() = 0;
};

// What was chosen: nothing, the file of a phrase, the own id of a history item, or the result of an
// extra command.
struct ClipId {
    std::uint32_t Value = 0;

    bool operator==(const ClipId&) const = default;
};
using MenuChoice = std::variant<std::monostate, std::filesystem::path, ClipId, std::int32_t>;

// Turns a query into the phrase menu. Belongs to the main thread.
class IDataNeededHander_MenuSelf {
  public:
    struct Collaborators {
        const CVBRCommandTree& Tree;
        const PhraseItemMaker& Items;
        QueueHistory& History;
        const CVBRSettings& Settings;
        const Strings& Texts;
        MenuPresenter& Presenter;
        GuardedSections& Guard;
        vbr::Log& Log;
        std::function<WindowState(WindowHandle)> StateOf;  // of any window, for the log
    };

    explicit IDataNeededHander_MenuSelf(Collaborators with) : with_(std::move(with)) {}

    void ClearFonts();
    // Keyboard layout macros of a chosen phrase are honoured.
    bool IsAllow_SwitchLayout() const { return true; }
    // The hook side is told not to wait for an answer.
    bool IsAllow_WaitAnswerFromExeAgent() const { return false; }
    bool IsMenuShown() const { return with_.Presenter.IsShown(); }

    // Shows the menu; what was chosen when it has closed. Without phrases and history no menu
    // opens. The answer stays as it is: what is shown here needs no description.
    MenuChoice OnDataNeeded(const WPQuery& query, WPAnswer& answer);

    // The item of that number in the menu of this query, which isn't shown; nothing for any other
    // number.
    MenuChoice ChoiceInMenu(const WPQuery& query, std::int64_t number);

    // Marks the phrase as the last one chosen and lets it stand among the recent ones. A file that
    // is no phrase does nothing.
    void RememberCommand(const std::filesystem::path& file);
    // After the phrases were read again: those that are gone are forgotten.
    void ForgetMissing();

    // What an item stands for, and what a number that another program sends does.
    MenuChoice ChoiceOf(const MenuSubject& subject) const;
    MenuChoice ChoiceOfNumber(std::uint32_t number) const;

    // Whether any phrase may need the clipboard's text.
    bool AsksForClipboard() const;
    void SetClipboardAtHotkey(std::u16string text) { clipboardAtHotkey_ = std::move(text); }
    const std::u16string& SelectedText() const { return selectedText_; }
    LayoutHandle Hkl() const { return hkl_; }
    // What the query found, as a delivery of its choice needs it.
    DeliveryContext Context() const;

  private:
    void LogWindows(const WPQuery& query);
    PhraseMenu MakeMenu();
    std::vector<const VBRCommand*> FindRecent();
    void AddClipboardHistoryIntoMenu(bool withTips, PhraseMenu& menu);

    Collaborators with_;
    RecentCommands recent_;
    std::filesystem::path lastFile_;  // of the phrase chosen last
    std::u16string selectedText_;
    LayoutHandle hkl_ = 0;
    std::u16string clipboardAtHotkey_;
};

}  // namespace vbr
