// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "diagnostics/guarded_section.h"
#include "diagnostics/window_entries.h"
#include "exchange/answer.h"
#include "exchange/query.h"
#include "menu/menu_history.h"
#include "menu/menu_item_info.h"
#include "menu/phrase_item.h"
#include "menu/recent_commands.h"
#include "phrases/command_tree.h"
#include "platform/clock.h"
#include "platform/log.h"
#include "platform/strings.h"
#include "platform/system_info.h"
#include "settings/settings.h"

namespace vbr {

// Shows a menu in front of the target and gives the foreground back when it has closed.
class MenuPresenter {
  public:
    virtual ~MenuPresenter() = default;

    // Runs the menu at the point, or at the mouse cursor; the chosen item's id, 0 for none.
    virtual std::uint32_t Show(PhraseMenu menu, std::optional<Point> at) = 0;
    virtual bool IsShown() const = 0;
    // The user's fonts have changed: they are made anew for the next menu.
    virtual void ClearFonts() = 0;
};

// Told how a menu ended: an item's id, the result of an extra command, or -1 for no choice, and the
// target window.
using ChoiceNotice = std::function<void(std::int32_t choice, WindowHandle target)>;

// Turns a query into the phrase menu and hands the user's choice on. Belongs to the main thread.
class IDataNeededHander_MenuSelf {
  public:
    struct Parts {
        const CVBRCommandTree& Tree;
        const PhraseItemMaker& Items;
        MenuHistory& History;
        const CVBRSettings& Settings;
        const Strings& Texts;
        MenuPresenter& Presenter;
        vbr::Clock& Clock;
        GuardedSections& Guard;
        vbr::Log& Log;
        std::function<WindowState(WindowHandle)> StateOf;  // of any window, for the log
    };

    IDataNeededHander_MenuSelf(const Parts& parts, ChoiceNotice notice)
        : parts_(parts), notice_(std::move(notice)) {}

    void ClearFonts();
    // Keyboard layout macros of a chosen phrase are honoured.
    bool IsAllow_SwitchLayout() const { return true; }
    // The hook side is told not to wait for an answer.
    bool IsAllow_WaitAnswerFromExeAgent() const { return false; }
    bool IsMenuShown() const { return parts_.Presenter.IsShown(); }

    // Shows the menu and returns when it has closed. Without phrases and history no menu opens. The
    // answer stays as it is: what is shown here needs no description.
    void OnDataNeeded(const WPQuery& query, WPAnswer& answer);

    // Marks the phrase as the last one chosen and lets it stand among the recent ones. Any other id
    // does nothing.
    void RememberCommand(std::uint32_t id);

    void SetClipboardAtHotkey(std::u16string text) { clipboardAtHotkey_ = std::move(text); }
    const std::u16string& ClipboardAtHotkey() const { return clipboardAtHotkey_; }
    const std::u16string& SelectedText() const { return selectedText_; }
    LayoutHandle Hkl() const { return hkl_; }

  private:
    void LogWindows(const WPQuery& query);
    PhraseMenu MakeMenu();
    std::vector<const VBRCommand*> FindRecent();
    void AddClipboardHistoryIntoMenu(bool withTips, PhraseMenu& menu);

    Parts parts_;
    ChoiceNotice notice_;
    RecentCommands recent_;
    std::uint32_t lastCommandId_ = 0;
    std::u16string selectedText_;
    LayoutHandle hkl_ = 0;
    std::u16string clipboardAtHotkey_;
};

}  // namespace vbr
