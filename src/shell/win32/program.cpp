// SPDX-License-Identifier: MIT
#include "shell/win32/program.h"

#include "diagnostics/win32/window_state.h"
#include "platform/object_names.h"
#include "platform/win32/elevation.h"
#include "platform/win32/wide.h"
#include "resources/resource_ids.h"
#include "shell/tray_messages.h"

namespace vbr {
namespace {

constexpr std::u16string_view kHistoryFolderName = u"ClipboardHistory";
constexpr DWORD kSavingMs = 3000;
constexpr DWORD kTryingMs = 1000;  // within them
constexpr DWORD kTryEveryMs = 100;
constexpr DWORD kAskEveryMs = 5;

constexpr WatchedEvent kEvents[] = {
    {kEventEditorEnded, EventReset::Automatic, ObjectAccess::World, kMsgEditorEnded},
    {kEventCommandCheckForUpdates, EventReset::Manual, ObjectAccess::Default, WM_COMMAND,
     kCmdCheckForUpdates},
    {kEventEdit, EventReset::Manual, ObjectAccess::World, WM_COMMAND, kCmdEditPhrases},
    {kEventShowMenu, EventReset::Automatic, ObjectAccess::World, kMsgShowMenuRequest},
};
// Few wait for these, so that the start doesn't.
constexpr WatchedEvent kLateEvents[] = {
    {kEventLangUiChanged, EventReset::Automatic, ObjectAccess::World, kMsgLanguageChanged},
    {kEventCheckForUpdates, EventReset::Automatic, ObjectAccess::World, WM_COMMAND,
     kCmdCheckForUpdates},
    {kEventFloatPaneBlink, EventReset::Automatic, ObjectAccess::World, kMsgPaneBlink},
};

std::u16string_view TrackingMethodText(TrackingState state) {
    switch (state) {
        case TrackingState::NotTried:
            return u"no try install service of clipboard history";
        case TrackingState::Listener:
            return u"using AddClipboardListener";
        case TrackingState::Viewer:
            return u"using SetClipboardViewer";
    }
    return u"using unknow method";
}

WindowHandle NumberOf(HWND window) {
    return reinterpret_cast<WindowHandle>(window);
}

std::unique_ptr<QueryRoute> MakeRoute(RouteKind kind, DesktopWindows& windows,
                                      SelectedTextReader& selection, UINT queryMessage, Log& log) {
    if (kind == RouteKind::Posted) {
        return std::make_unique<PostedRoute>(windows, selection, queryMessage, log);
    }
    return std::make_unique<LocalRoute>(windows, selection);
}

// The library asks the system the same question as the program, unless the answer is forced.
QueryRouteChoice RouteOfLibrary(std::optional<RouteKind> forced) {
    if (!forced) {
        return QueryRouteChoice::OfSystem;
    }
    return *forced == RouteKind::Posted ? QueryRouteChoice::Posted : QueryRouteChoice::Local;
}

}  // namespace

bool HandlerCapture::Start(bool withContent) {
    return handler_.Create(parent_, kHistoryControlId, withContent);
}

Program::Program(const ProcessContext& process, HWND window, TrayView& view)
    : process_(process),
      window_(window),
      queryMessage_(RegisterWindowMessageW(Wide(kMessageQuery.data()))),
      elevated_(IsProcessElevated()),
      system_(process.Locations.ProgramFolder),
      clipboard_(window),
      hotkeys_(window, kHotkeyId),
      richText_(process.Log),
      ownCopy_(clipboard_, GetCurrentProcessId(), process.Log),
      sounds_({.ProgramFolder = process.Locations.ProgramFolder,
               .IsOn = [&settings = process.Settings] { return settings.SoundOnEvents; },
               .Player = player_,
               .Log = process.Log}),
      keys_({.Input = input_,
             .Join = inputJoin_,
             .Windows = targets_,
             .Clock = process.Clock,
             .Log = process.Log}),
      files_(fileStore_, process.Log),
      saver_(files_, [window] { PostMessageW(window, kMsgPhraseChanged, 0, 0); }),
      tree_(files_, saver_, process.Clock, process.Log),
      values_(process.Clock, process.Locale, system_),
      macros_(values_, process.Layouts, process.Locale, process.Log),
      richMacros_(macros_, process.Layouts, process.Locale, richText_),
      previews_({.Macros = macros_,
                 .Engine = richText_,
                 .Locale = process.Locale,
                 .Texts = process.Texts,
                 .Log = process.Log}),
      items_(previews_, process.Locale, process.Texts),
      pasteSnapshot_(clipboard_, process.Log),
      prompter_(process.Texts),
      text_({.Input = input_,
             .Keys = keys_,
             .Targets = targets_,
             .Clipboard = clipboard_,
             .OwnCopy = ownCopy_,
             .Snapshot = pasteSnapshot_,
             .RichText = richText_,
             .Locale = process.Locale,
             .Clock = process.Clock,
             .Log = process.Log,
             .Settings =
                 [&settings = process.Settings] {
                     return PasteSettings{settings.TextPasteMethod, settings.PrintLTChars,
                                          settings.RestoreClipboardAfterPaste};
                 }}),
      switcher_({.Input = input_,
                 .Keys = keys_,
                 .Layouts = process.Layouts,
                 .Windows = windows_,
                 .Targets = targets_,
                 .Clock = process.Clock,
                 .Log = process.Log}),
      commandStart_(starter_, process.Texts, sounds_, process.Log),
      runner_({.Macros = macros_,
               .Rich = richMacros_,
               .Delivery = text_,
               .Commands = commandStart_,
               .Prompts = prompter_,
               .Windows = windows_,
               .Targets = targets_,
               .Log = process.Log,
               .IsEnding = [this] { return flow_.IsStopped(); }}),
      delivery_({.Tree = tree_,
                 .Macros = macros_,
                 .Runner = runner_,
                 .Delivery = text_,
                 .Layouts = switcher_,
                 .Sounds = sounds_,
                 .Log = process.Log}),
      handler_({.Settings = process.Settings,
                .Folder = process.Locations.ProgramFolder + std::u16string(kHistoryFolderName),
                .Clock = process.Clock,
                .Ansi = ansi_,
                .Bitmaps = bitmaps_,
                .Windows = programWindows_,
                .Store = fileStore_,
                .Files = stampedFiles_,
                .Access = clipboard_,
                .Faults = process.Faults,
                .MyCopy = ownCopy_,
                .ProgramEnd = process.Stop,
                .SaveEnded = [window] { PostMessageW(window, kMsgHistorySaveEnded, 0, 0); },
                .Log = process.Log}),
      itemTexts_(ansi_, richText_, process.Log),
      menuHistory_(handler_.Queue(), itemTexts_),
      itemClipboard_({.Queue = handler_.Queue(),
                      .Access = clipboard_,
                      .Bitmaps = bitmaps_,
                      .Texts = itemTexts_,
                      .Locale = process.Locale,
                      .Log = process.Log}),
      snapshot_(clipboard_, process.Log),
      selection_(
          {.Clipboard = clipboard_,
           .Snapshot = snapshot_,
           .Ansi = ansi_,
           .Input = input_,
           .Keys = keys_,
           .Windows = windows_,
           .Clock = process.Clock,
           .OwnCopy = ownCopy_,
           .Log = process.Log,
           .HotkeyVk = [&settings = process.Settings] { return settings.HotkeyVk; },
           .TerminalClasses = [&settings = process.Settings] { return settings.TerminalClasses; }}),
      route_(MakeRoute(ChooseRoute(system_.Is64BitWindows(), process.ForcedRoute), windows_,
                       selection_, queryMessage_, process.Log)),
      queryWait_({.NotifyWindow = window,
                  .QueryMessage = kMsgQueryReady,
                  .ErrorMessage = kMsgWaitError,
                  .Stop = process.Stop,
                  .Memory = process.Objects,
                  .Selection = selection_,
                  .Log = process.Log}),
      hookModule_(process.Locations.HookLibrary()),
      hooks_({.Library = hookModule_,
              .LibraryPath = process.Locations.HookLibrary(),
              .Objects = process.Objects,
              .Windows = windows_,
              .Route = *route_,
              .Log = process.Log}),
      hotkey_({.Settings = process.Settings,
               .Hooks = hooks_,
               .Waiter = queryWait_,
               .Hotkeys = hotkeys_,
               .Objects = process.Objects,
               .Memory = process.Objects,
               .Taken = process.Taken,
               .Log = process.Log,
               .Messages = process.Messages}),
      presenter_({.Foreground = window,
                  .Settings = process.Settings,
                  .Texts = process.Texts,
                  .Clock = process.Clock,
                  .Guard = process.Guard,
                  .Log = process.Log,
                  .OnRightCommand =
                      [this](RightMenuCode code, const MenuSubject& item) {
                          return flow_.OnRightMenuCommand(code, item);
                      },
                  .IsEnding = [this] { return flow_.IsStopped(); },
                  .Editor = process.Locations.Editor()}),
      menu_({.Tree = tree_,
             .Items = items_,
             .History = menuHistory_,
             .Settings = process.Settings,
             .Texts = process.Texts,
             .Presenter = presenter_,
             .Guard = process.Guard,
             .Log = process.Log,
             .StateOf = [](WindowHandle asked) { return StateOf(reinterpret_cast<HWND>(asked)); }}),
      rightMenu_({.Tree = tree_,
                  .Menu = menu_,
                  .Expand =
                      [this](const VBRCommand& record) {
                          return delivery_.TextOf(record, menu_.Context());
                      },
                  .Copy =
                      [this](bool plain, std::u16string_view text) {
                          return text_.CopyToClipboard(plain, text, LanguageOf(menu_.Hkl()));
                      },
                  .CopyHistoryItem =
                      [this](ClipId item) {
                          const MyCopyScope ownCopy(ownCopy_, clipboard_);
                          const bool copied = itemClipboard_.PutItemOnClipboard(item.Value);
                          if (copied) {
                              snapshot_.ClearRestore();
                          }
                          return copied;
                      },
                  .Log = process.Log}),
      service_({.Settings = process.Settings,
                .Locations = process.Locations,
                .Files = process.Access,
                .Log = process.Log,
                .LogOfUser = process.Log,
                .Saver = saver_,
                .Tree = tree_,
                .Menu = menu_,
                .Hotkey = hotkey_,
                .Window = NumberOf(window),
                .QueryMessage = queryMessage_,
                .Route = RouteOfLibrary(process.ForcedRoute),
                .TargetsAnswer = ChooseRoute(system_.Is64BitWindows(), process.ForcedRoute) ==
                                 RouteKind::Posted}),
      settingsReader_({.Settings = process.Settings,
                       .View = view,
                       .Log = process.Log,
                       .OnReadLate = [this] { requests_.OnSettingsReadLate(); }}),
      display_({.View = view,
                .State = [this] { return service_.State(elevated_); },
                .Settings = process.Settings,
                .Texts = process.Texts,
                .Sounds = sounds_,
                .Log = process.Log}),
      capture_(handler_, window),
      history_({.Settings = process.Settings,
                .Capture = capture_,
                .Queue = handler_.Queue(),
                .View = view,
                .Display = display_,
                .Texts = process.Texts,
                .Sounds = sounds_,
                .Log = process.Log}),
      flow_({.Settings = process.Settings,
             .Texts = process.Texts,
             .Clock = process.Clock,
             .Desktops = desktops_,
             .Windows = windows_,
             .Clipboard = clipboard_,
             .Selection = selection_,
             .Snapshot = snapshot_,
             .CaptureFirst = [this] { handler_.CaptureNow(); },
             .Hotkey = hotkey_,
             .Hooks = hooks_,
             .Menu = menu_,
             .History = menuHistory_,
             .Delivery = delivery_,
             .RightMenu = rightMenu_,
             .View = view,
             .Display = display_,
             .Sounds = sounds_,
             .Log = process.Log,
             .RunCommand = [this](int command) { commands_.Run(command); },
             .StartEditor =
                 [this](WindowHandle asker, std::u16string selection) {
                     companions_.StartEditor(
                         {.Window = asker, .SelectedText = std::move(selection)});
                 }}),
      companions_(
          {.Settings = process.Settings,
           .Locations = process.Locations,
           .Files = process.Access,
           .Shared = hotkey_.Shared(),
           .Processes = processes_,
           .Opener = opener_,
           .Instance = process.Instance,
           .View = view,
           .Stop = process.Stop,
           .Window = NumberOf(window),
           .Elevated = elevated_,
           .OnThread = [this](std::function<void()> work) { editors_.Start(std::move(work)); },
           .Tell =
               [](WindowHandle told, EditorState state) {
                   PostMessageW(reinterpret_cast<HWND>(told), kMsgEditorState,
                                static_cast<WPARAM>(state), 0);
               },
           .Log = process.Log}),
      autostart_(process.Autostart, process.Locations.ModulePath, process.Log),
      clips_({.Queue = handler_.Queue(),
              .Texts = itemTexts_,
              .Clipboard = clipboard_,
              .Copy = [this](std::uint32_t id) { return itemClipboard_.PutItemOnClipboard(id); }}),
      commands_({.Settings = process.Settings,
                 .Locations = process.Locations,
                 .Reader = settingsReader_,
                 .Service = service_,
                 .History = history_,
                 .Flow = flow_,
                 .View = view,
                 .Display = display_,
                 .Sounds = sounds_,
                 .Clipboard = clipboard_,
                 .Clips = clips_,
                 .Companions = companions_,
                 .Autostart = autostart_,
                 .Opener = opener_,
                 .Texts = process.Texts,
                 .Window = NumberOf(window),
                 .Log = process.Log}),
      trayMenu_({.Commands = commands_,
                 .Service = service_,
                 .Clips = clips_,
                 .Settings = process.Settings,
                 .History = history_,
                 .Texts = process.Texts}),
      tips_({.Settings = process.Settings,
             .Locations = process.Locations,
             .Service = service_,
             .Commands = commands_,
             .Clips = clips_,
             .Messages = process.Messages,
             .Clipboard = clipboard_,
             .Ansi = ansi_,
             .Items = itemTexts_,
             .Clock = process.Clock,
             .Locale = process.Locale,
             .Texts = process.Texts,
             .HistoryFolder = process.Locations.ProgramFolder + std::u16string(kHistoryFolderName),
             .TrackingMethod = [this] { return TrackingMethodText(handler_.Tracking()); }}),
      requests_({.Settings = process.Settings,
                 .Reader = settingsReader_,
                 .Profile = process.Profile,
                 .Texts = process.Texts,
                 .Clock = process.Clock,
                 .Service = service_,
                 .History = history_,
                 .Flow = flow_,
                 .Commands = commands_,
                 .Companions = companions_,
                 .Autostart = autostart_,
                 .View = view,
                 .Display = display_,
                 .Sounds = sounds_,
                 .Input = input_,
                 .Log = process.Log}),
      session_({.IsSpyRunning = [this] { return history_.IsKeeping(); },
                .StartSpy = [this] { return history_.Resume(); },
                .StopSpy = [this] { return capture_.Stop(); },
                .OnSpyChanged = [this] { display_.UpdateTrayIcon(TrayIconMode::Modify); },
                .Announce =
                    [this](std::uint32_t reason) {
                        requests_.UiObservers().Announce(UiChange::Session, reason);
                    }},
               process.Log) {
    // The editor shows it.
    history_.KeepObservers().Add(this,
                                 [this](bool) { process_.Objects.Pulse(kEventOptionsChanged); });
    handler_.OnSpyStateChanged([this](bool) { history_.AnnounceKeep(); });
    process.Bound.SetSavers({handler_.Busy(), saver_.Busy()}, [this] {
        handler_.SaveForHangingThread();
        saver_.Flush();
    });
}

Program::~Program() {
    // It calls what goes now.
    process_.Events.Join();
}

void Program::Start() {
    requests_.ApplyLanguage();
    WatchEvents();
    if (process_.CmdLine.NoInstall()) {
        process_.Messages.push_back(u"No install on launch. Flag specifided");
    } else {
        requests_.InstallAtStart();
    }
    settingsReader_.TryAgainLater();
    process_.Taken.OnNoted([this] { requests_.OnNameTaken(); });
    if (elevated_) {
        requests_.TellOfOpenPlaces(process_.Locations, process_.Access);
    }
    display_.InstallWithRetry();
    BeginSessionNotices(sessionNotify_, NumberOf(window_), process_.Log);
    if (process_.CmdLine.Edit()) {
        PostMessageW(window_, WM_COMMAND, kCmdEditPhrases, 0);
    }
    if (process_.CmdLine.Cfu()) {
        PostMessageW(window_, WM_COMMAND, kCmdCheckForUpdates, 0);
    }
    if (process_.CmdLine.ShowMenu()) {
        PostMessageW(window_, kMsgShowMenuRequest, 0, 0);
    }
    requests_.BeginFirstRun(process_.Locations);
    process_.Events.Start();
}

CTrayMenuToolTip::Source Program::MenuTips() {
    return {.Tip =
                [this](std::uint32_t id, std::u16string& text, std::u16string& title) {
                    auto tip = tips_.TipOf(id);
                    if (tip) {
                        text = std::move(tip->Text);
                        title = std::move(tip->Title);
                    }
                    return tip.has_value();
                },
            .IsOn = [this] { return process_.Settings.MenuToolTips; },
            .Editor = process_.Locations.Editor()};
}

void Program::WatchEvents() {
    Watch(kEvents);
    Watch(kEventStartCopy, EventReset::Automatic, ObjectAccess::World,
          [this] { ownCopy_.StartBracket(); });
    Watch(kEventEndCopy, EventReset::Automatic, ObjectAccess::World,
          [this] { ownCopy_.EndBracket(); });
}

void Program::WatchLateEvents() {
    Watch(kLateEvents);
}

void Program::Watch(std::span<const WatchedEvent> events) {
    for (const WatchedEvent& event : events) {
        Watch(event.Name, event.Reset, event.Access, [window = window_, event] {
            PostMessageW(window, event.Message, event.Parameter, 0);
        });
    }
}

void Program::Watch(std::u16string_view name, EventReset reset, ObjectAccess access,
                    std::function<void()> onSignal) {
    if (!process_.Events.Watch(name, reset, access, std::move(onSignal))) {
        process_.Taken.Note(name);
    }
}

void Program::BeginEnd() {
    endBegan_ = GetTickCount();
    process_.Bound.Begin();
    process_.Stop.Set();
    flow_.Stop();
    handler_.CaptureNow();
    handler_.SaveRest();
    WaitUntilSaved();
    process_.Bound.NoteHandedOver();
}

// A thread that saves may be sending a message to this one.
void Program::WaitUntilSaved() {
    const auto elapsed = [this] { return GetTickCount() - endBegan_; };
    const auto wait = [](DWORD milliseconds) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, milliseconds, QS_SENDMESSAGE);
        MSG ignored;
        PeekMessageW(&ignored, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
    };
    do {
        while ((*handler_.Busy() || *saver_.Busy()) && elapsed() < kSavingMs) {
            wait(kAskEveryMs);
        }
        // Another program may hold a file for a moment.
    } while (elapsed() < kTryingMs && handler_.SaveRest() && (wait(kTryEveryMs), true));
}

void Program::Stop() {
    process_.Bound.NoteHandedOver();
    process_.Stop.Set();
    flow_.Stop();
    service_.StopService();
    display_.DeleteIcon();
    // While the window still owns what it puts there.
    {
        const MyCopyScope ownCopy(ownCopy_, clipboard_);
        snapshot_.RestoreClipboardSnapshot();
    }
    capture_.Stop();
    EndSessionNotices(sessionNotify_, NumberOf(window_), process_.Log);
}

}  // namespace vbr
