// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <memory>
#include <string>

#include "diagnostics/win32/file_log.h"
#include "exchange/hook_service.h"
#include "exchange/selected_text.h"
#include "exchange/win32/hook_module.h"
#include "macros/actions.h"
#include "macros/command_delivery.h"
#include "macros/macro_engine.h"
#include "macros/macro_values.h"
#include "macros/text_delivery.h"
#include "menu/phrase_menu_handler.h"
#include "menu/win32/popup_menu.h"
#include "phrases/command_file.h"
#include "phrases/command_saver.h"
#include "phrases/command_tree.h"
#include "platform/strings.h"
#include "platform/win32/win_clipboard.h"
#include "platform/win32/win_clock.h"
#include "platform/win32/win_desktop_windows.h"
#include "platform/win32/win_file_store.h"
#include "platform/win32/win_hotkey_registrar.h"
#include "platform/win32/win_input_injector.h"
#include "platform/win32/win_keyboard_layouts.h"
#include "platform/win32/win_locale.h"
#include "platform/win32/win_named_objects.h"
#include "platform/win32/win_system_info.h"
#include "platform/win32/window_base.h"
#include "settings/settings.h"
#include "shell/command_line.h"
#include "shell/double_press.h"
#include "shell/file_locations.h"
#include "shell/hotkey_service.h"
#include "shell/win32/event_watcher.h"
#include "shell/win32/tray_icon.h"

namespace vbr {

// What the process has made before the tray window.
struct TrayContext {
    CVBRSettings& Settings;
    const FileLocations& Locations;
    FileAccess& Access;
    const Strings& Texts;
    FileLog& TrayLog;
    const CVBRCmdLine& CmdLine;
    NamedEvent& Stop;
};

// The hidden main window. It owns the icon, the hot key, the phrases and the menu, and is the one
// place to which threads and outside programs address their requests.
class CVBRTrayWnd : public WindowBase {
  public:
    explicit CVBRTrayWnd(const TrayContext& context);
    ~CVBRTrayWnd() override;

    bool Create();

  protected:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    // Messages
    LRESULT OnCreate(WPARAM, LPARAM);
    LRESULT OnDestroy(WPARAM, LPARAM);
    LRESULT OnInstallTrayIcon(WPARAM, LPARAM);
    LRESULT OnTrayNotify(WPARAM, LPARAM mouseMessage);
    LRESULT OnCommandFromSelf(WPARAM choice, LPARAM target);
    LRESULT OnShowMenuRequest(WPARAM, LPARAM);
    LRESULT OnHotKey(WPARAM id, LPARAM);
    LRESULT OnCommand(WPARAM command, LPARAM);
    LRESULT OnInstanceSignal(WPARAM code);
    LRESULT OnTaskbarCreated();

    // The service behind the hot key
    bool InstallService(std::u16string& errorText);
    void ToggleService();
    void StartQuery();
    void LoadPhrases();

    void StartWatchers();
    bool UpdateTrayIcon(TrayIconMode mode, std::u16string_view balloonText, bool warning);
    void DisplayTrayMenu(POINT point);
    void DisplayTrayMenuAtCursor();
    void ShowMessage(const std::u16string& text, UINT flags);

    TrayContext context_;
    UINT instanceSignal_;
    UINT taskbarCreated_;
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
    TextDelivery text_;
    ActionRunner runner_;
    CommandDelivery delivery_;
    SelectedTextReader selection_;
    HookModule hookModule_;
    CVBRDLLService hooks_;
    MessageList messages_;
    DoublePress doublePress_;
    TrayIcon icon_;

    std::unique_ptr<WinHotkeyRegistrar> hotkeys_;
    std::unique_ptr<HotkeyService> service_;
    std::unique_ptr<PopupMenuPresenter> presenter_;
    std::unique_ptr<IDataNeededHander_MenuSelf> builder_;
    EventWatcher editWatcher_;
    EventWatcher showMenuWatcher_;
};

}  // namespace vbr
