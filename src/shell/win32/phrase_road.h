// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <cstdint>
#include <filesystem>
#include <string>

#include "diagnostics/win32/file_log.h"
#include "exchange/clipboard_snapshot.h"
#include "exchange/hook_service.h"
#include "exchange/query_road.h"
#include "exchange/selected_text.h"
#include "exchange/win32/hook_module.h"
#include "exchange/win32/query_wait_thread.h"
#include "history/item_clipboard.h"
#include "macros/macro_engine.h"
#include "macros/macro_values.h"
#include "macros/phrase_texts.h"
#include "macros/rich_macros.h"
#include "menu/phrase_item.h"
#include "menu/phrase_menu_handler.h"
#include "menu/queue_history.h"
#include "menu/right_menu_commands.h"
#include "menu/win32/popup_menu.h"
#include "phrases/command_file.h"
#include "phrases/command_saver.h"
#include "phrases/command_tree.h"
#include "platform/win32/win_ansi_text.h"
#include "platform/win32/win_bitmaps.h"
#include "platform/win32/win_clipboard.h"
#include "platform/win32/win_clipboard_access.h"
#include "platform/win32/win_clock.h"
#include "platform/win32/win_desktop_windows.h"
#include "platform/win32/win_file_store.h"
#include "platform/win32/win_hotkey_registrar.h"
#include "platform/win32/win_input_injector.h"
#include "platform/win32/win_keyboard_layouts.h"
#include "platform/win32/win_locale.h"
#include "platform/win32/win_named_objects.h"
#include "platform/win32/win_rich_text_engine.h"
#include "platform/win32/win_system_info.h"
#include "settings/settings.h"
#include "shell/file_locations.h"
#include "shell/hotkey_service.h"
#include "shell/rooms.h"
#include "shell/win32/delivery_road.h"

namespace vbr {

// The main job put together: from the hot key over the target, the menu and the macros to typed
// text. Belongs to the main thread.
class PhraseRoad {
  public:
    struct Parts {
        CVBRSettings& Settings;
        const FileLocations& Locations;
        FileAccess& Access;
        FileLog& RoadLog;
        MessageList& Messages;
        const Strings& Texts;
        GuardedSections& Guard;
        NamedEvent& Stop;
        std::optional<RoadKind> ForcedRoad;
        HistoryRoom& History;
    };

    // `window` gets WM_HOTKEY and the choices of the menu.
    PhraseRoad(const Parts& parts, HWND window);

    // Applies the log setting, loads the phrases and turns the hot key on. On a failure the hot
    // key stays off and `errorText` tells why.
    bool InstallService(std::u16string& errorText);
    void StopService() { service_.Stop(); }
    void RestartQueryWait() { service_.RestartWait(); }
    bool IsServiceInstalled() const { return service_.IsInstalled(); }
    std::u16string HotkeyName() const { return service_.HotkeyName(); }

    void LoadPhrases();
    CommandCounts CountPhrases() const { return tree_.CountCommands(); }
    // The folder that the settings name, whether or not it exists.
    std::u16string PhrasesFolder() const;

    // Asks the window in front. When that is answered here, shows the menu and returns when it has
    // closed.
    QueryStart StartQuery(bool fromHotkey);
    // Shows the menu for a query that came through the interchange area, whose addresses the
    // message of the wait thread gives.
    void OnQueryReady(WPARAM query, LPARAM answer);
    // Gives the clipboard back what it held before the query.
    void RestoreClipboardSnapshot() { delivery_.RestoreClipboard(); }
    bool IsMenuShown() const { return builder_.IsMenuShown(); }
    // After the settings were read again.
    void ClearMenuFonts() { builder_.ClearFonts(); }
    bool IsAllow_WaitAnswerFromExeAgent() const {
        return builder_.IsAllow_WaitAnswerFromExeAgent();
    }

    // Carries out a command of the phrase menu's right-click menu on the item with that id; true
    // when the menu is to close.
    bool OnRightMenuCommand(std::uint32_t code, std::uint32_t id) {
        return rightMenu_.OnRightMenuCommand(code, id);
    }

    // Carries out a choice of the menu: the id of a phrase or of a history item.
    void Deliver(std::uint32_t id, WindowHandle target);
    const std::u16string& SelectedText() const { return builder_.SelectedText(); }

  private:
    std::u16string ExpandedText(const VBRCommand& record);
    bool CopyHistoryItem(std::size_t index);

    Parts parts_;
    HWND window_;
    UINT queryMessage_;

    WinClock clock_;
    WinLocale locale_;
    WinSystemInfo system_;
    WinKeyboardLayouts layouts_;
    WinNamedObjects objects_;
    WinFileStore fileStore_;
    WinClipboard clipboard_;
    WinInputInjector input_;
    WinDesktopWindows windows_;

    CommandFiles files_;
    CommandSaver saver_;
    CVBRCommandTree tree_;
    MacroValues values_;
    MacroEngine macros_;
    WinRichTextEngine richText_;
    RichMacros richMacros_;
    PhraseTexts previews_;
    PhraseItemMaker items_;
    WinClipboardAccess clipboardAccess_;
    WinAnsiText ansi_;
    ItemTexts historyTexts_;
    QueueHistory history_;
    WinBitmaps bitmaps_;
    ItemClipboard historyClipboard_;
    CClipboardSnapshot snapshot_;
    DeliveryRoad delivery_;
    SelectedTextReader selection_;
    std::unique_ptr<QueryRoad> queryRoad_;
    QueryWaitThread queryWait_;
    HookModule hookModule_;
    CVBRDLLService hooks_;
    WinHotkeyRegistrar hotkeys_;
    HotkeyService service_;
    PopupMenuPresenter presenter_;
    IDataNeededHander_MenuSelf builder_;
    RightMenuCommands rightMenu_;
};

}  // namespace vbr
