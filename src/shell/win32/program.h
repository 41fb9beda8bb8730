// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <memory>
#include <optional>
#include <span>
#include <string_view>

#include "diagnostics/guarded_section.h"
#include "diagnostics/win32/file_log.h"
#include "exchange/hook_service.h"
#include "exchange/query_route.h"
#include "exchange/selected_text.h"
#include "exchange/session_change.h"
#include "exchange/win32/hook_module.h"
#include "exchange/win32/query_wait_thread.h"
#include "exchange/win32/win_desktops.h"
#include "exchange/win32/wts_notify.h"
#include "history/item_clipboard.h"
#include "history/win32/clipboard_handler.h"
#include "macros/command_delivery.h"
#include "macros/phrase_texts.h"
#include "macros/win32/prompt_dialog_window.h"
#include "menu/right_menu_commands.h"
#include "menu/win32/command_tool_tip.h"
#include "menu/win32/popup_menu.h"
#include "platform/clipboard_snapshot.h"
#include "platform/my_copy.h"
#include "platform/task_threads.h"
#include "platform/win32/named_event_thread.h"
#include "platform/win32/win_ansi_text.h"
#include "platform/win32/win_bitmaps.h"
#include "platform/win32/win_clipboard_access.h"
#include "platform/win32/win_desktop_windows.h"
#include "platform/win32/win_file_store.h"
#include "platform/win32/win_hotkey_registrar.h"
#include "platform/win32/win_input_injector.h"
#include "platform/win32/win_input_join.h"
#include "platform/win32/win_process_starter.h"
#include "platform/win32/win_program_starter.h"
#include "platform/win32/win_program_windows.h"
#include "platform/win32/win_rich_text_engine.h"
#include "platform/win32/win_shell_opener.h"
#include "platform/win32/win_sound_player.h"
#include "platform/win32/win_stamped_files.h"
#include "platform/win32/win_system_info.h"
#include "platform/win32/win_target_windows.h"
#include "settings/file_locations.h"
#include "settings/settings.h"
#include "shell/autostart_control.h"
#include "shell/command_line.h"
#include "shell/companions.h"
#include "shell/history_control.h"
#include "shell/hotkey_service.h"
#include "shell/instance_control.h"
#include "shell/query_flow.h"
#include "shell/service_control.h"
#include "shell/settings_reader.h"
#include "shell/tray_commands.h"
#include "shell/tray_display.h"
#include "shell/tray_history.h"
#include "shell/tray_menu.h"
#include "shell/tray_requests.h"
#include "shell/tray_tips.h"
#include "shell/tray_view.h"
#include "shell/win32/forced_end.h"

namespace vbr {

// What the process has made before its window.
struct ProcessContext {
    CVBRSettings& Settings;
    const ProfileStore& Profile;
    const FileLocations& Locations;
    FileAccess& Access;
    const Strings& Texts;
    vbr::Clock& Clock;
    const vbr::Locale& Locale;
    const KeyboardLayouts& Layouts;
    WinNamedObjects& Objects;
    FaultCatcher& Faults;
    GuardedSections& Guard;
    FileLog& Log;
    const CVBRCmdLine& CmdLine;
    MessageList& Messages;
    NamedEvent& Stop;          // set when the program ends
    ForcedEnd& Bound;          // of the time that the end takes
    NamedEventThread& Events;  // not yet started
    InstanceControl& Instance;
    vbr::Autostart& Autostart;
    TakenNames& Taken;
    std::optional<RouteKind> ForcedRoute;  // for tests
};

// The clipboard handler's window as the shell starts and stops it.
class HandlerCapture : public HistoryCapture {
  public:
    HandlerCapture(CVBRWndClipboardHandler& handler, HWND parent)
        : handler_(handler), parent_(parent) {}

    bool IsKeeping() const override { return handler_.IsKeeping(); }
    bool Start(bool withContent) override;
    bool Stop() override { return handler_.Destroy(); }
    void Save() override { handler_.Save(); }
    SaveState Saving() const override { return handler_.Saving(); }
    void NotifyChanged() override { handler_.NotifyChanged(); }

  private:
    CVBRWndClipboardHandler& handler_;
    HWND parent_;
};

// A named event and the message that its signal becomes.
struct WatchedEvent {
    std::u16string_view Name;
    EventReset Reset;
    ObjectAccess Access;
    UINT Message;
    WPARAM Parameter = 0;
};

// The whole program behind its window: every part, made once, in the order in which they depend on
// each other. Belongs to the main thread.
class Program {
  public:
    // `window` exists; `view` shows what the program has to show.
    Program(const ProcessContext& process, HWND window, TrayView& view);
    // The stop event is set before.
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // When the window is made, and before it is gone.
    void Start();
    void Stop();
    // The end was asked for: nothing begins any more, and what is unsaved is on the disk when this
    // returns, or after three seconds on the way there.
    void BeginEnd();
    // Waits for the rest of these three seconds.
    void WaitUntilSaved();
    // Some seconds after the start, when the events that few wait for are made.
    void WatchLateEvents();

    QueryFlow& Flow() { return flow_; }
    TrayCommands& Commands() { return commands_; }
    TrayRequests& Requests() { return requests_; }
    TrayDisplay& Display() { return display_; }
    ServiceControl& Service() { return service_; }
    HistoryControl& History() { return history_; }
    CVBRWndClipboardHandler& Handler() { return handler_; }
    SessionWatch& Session() { return session_; }
    TrayMenu& Menu() { return trayMenu_; }
    TrayHistory& Clips() { return clips_; }
    CTrayMenuToolTip::Source MenuTips();
    // The query whose addresses a message of the wait thread gives.
    std::shared_ptr<QueryExchange> FindQuery(WPARAM query, LPARAM answer) {
        return queryWait_.Find(query, answer);
    }

  private:
    void WatchEvents();
    void Watch(std::span<const WatchedEvent> events);
    void Watch(std::u16string_view name, EventReset reset, ObjectAccess access,
               std::function<void()> onSignal);

    ProcessContext process_;
    HWND window_;
    UINT queryMessage_;
    bool elevated_;
    DWORD endBegan_ = 0;  // ticks

    // The desktop.
    WinSystemInfo system_;
    WinFileStore fileStore_;
    WinStampedFiles stampedFiles_;
    WinAnsiText ansi_;
    WinBitmaps bitmaps_;
    WinClipboardAccess clipboard_;
    WinInputInjector input_;
    WinInputJoin inputJoin_;
    WinDesktopWindows windows_;
    WinTargetWindows targets_;
    WinProgramWindows programWindows_;
    WinProgramStarter starter_;
    WinShellOpener opener_;
    WinSoundPlayer player_;
    WinDesktops desktops_;
    WinHotkeyRegistrar hotkeys_;
    WinRichTextEngine richText_;
    MyCopyGuard ownCopy_;
    EventSounds sounds_;
    TargetInput keys_;

    // Phrases and what becomes of them.
    CommandFiles files_;
    CommandSaver saver_;
    CVBRCommandTree tree_;
    MacroValues values_;
    MacroEngine macros_;
    RichMacros richMacros_;
    PhraseTexts previews_;
    PhraseItemMaker items_;
    CClipboardSnapshot pasteSnapshot_;
    WinPrompter prompter_;
    TextDelivery text_;
    LayoutSwitcher switcher_;
    CommandStart commandStart_;
    ActionRunner runner_;
    CommandDelivery delivery_;

    // The clipboard history.
    CVBRWndClipboardHandler handler_;
    ItemTexts itemTexts_;
    QueueHistory menuHistory_;
    ItemClipboard itemClipboard_;

    // The target.
    CClipboardSnapshot snapshot_;
    SelectedTextReader selection_;
    std::unique_ptr<QueryRoute> route_;
    QueryWaitThread queryWait_;
    HookModule hookModule_;
    CVBRDLLService hooks_;
    HotkeyService hotkey_;

    // The menu and what the shell makes of it all.
    PopupMenuPresenter presenter_;
    IDataNeededHander_MenuSelf menu_;
    RightMenuCommands rightMenu_;
    ServiceControl service_;
    SettingsReader settingsReader_;
    TrayDisplay display_;
    HandlerCapture capture_;
    HistoryControl history_;
    QueryFlow flow_;
    WinProcessStarter processes_;
    Companions companions_;
    TaskThreads editors_;
    AutostartControl autostart_;
    TrayHistory clips_;
    TrayCommands commands_;
    TrayMenu trayMenu_;
    TrayTips tips_;
    TrayRequests requests_;
    CWtsNotify sessionNotify_;
    SessionWatch session_;
};

}  // namespace vbr
