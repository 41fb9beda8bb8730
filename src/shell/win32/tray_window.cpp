// SPDX-License-Identifier: MIT
#include "shell/win32/tray_window.h"

#include "base/text.h"
#include "platform/object_names.h"
#include "platform/win32/auto_foreground_window.h"
#include "platform/win32/menu_handle.h"
#include "platform/win32/wide.h"
#include "resources/resource_ids.h"
#include "shell/tray_menu.h"
#include "shell/tray_messages.h"
#include "shell/tray_texts.h"
#include "shell/win32/app_objects.h"

namespace vbr {
namespace {

constexpr DWORD kTrayStyle = 0x008D0000;
constexpr DWORD kExitBalloonMs = 500;

UINT Registered(std::u16string_view name) {
    return RegisterWindowMessageW(Wide(name.data()));
}

HICON ProgramIcon(int width, int height) {
    return static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(kIconProgram),
                                         IMAGE_ICON, width, height, LR_SHARED));
}

}  // namespace

CVBRTrayWnd::CVBRTrayWnd(const TrayContext& context)
    : context_(context),
      instanceSignal_(Registered(kMessageInstanceSignal)),
      taskbarCreated_(Registered(kMessageTaskbarCreated)),
      queryMessage_(Registered(kMessageQuery)),
      system_(context.Locations.ProgramFolder),
      files_(fileStore_, context.TrayLog),
      saver_(files_),
      tree_(files_, saver_, clock_, context.TrayLog),
      values_(clock_, locale_, system_),
      macros_(values_, layouts_, locale_, context.TrayLog),
      text_(input_, context.TrayLog),
      runner_(macros_, text_, context.TrayLog),
      delivery_(tree_, macros_, runner_),
      selection_(clipboard_, input_, windows_, clock_),
      hookModule_(context.Locations.HookLibrary()),
      hooks_(hookModule_, objects_, windows_, selection_, context.Locations.HookLibrary(),
             context.TrayLog) {}

CVBRTrayWnd::~CVBRTrayWnd() {
    Destroy();
}

bool CVBRTrayWnd::Create() {
    WindowCreation creation;
    creation.ClassName = L"Vellumbridge_Tray";
    const std::u16string title = context_.Texts.LoadString(kStrProductName);
    creation.Title = title;
    creation.Style = kTrayStyle;
    creation.X = creation.Y = -100;
    creation.Width = creation.Height = 95;
    return WindowBase::Create(creation);
}

std::optional<LRESULT> CVBRTrayWnd::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    static constexpr MessageHandler<CVBRTrayWnd> kMap[] = {
        {WM_CREATE, &CVBRTrayWnd::OnCreate},
        {WM_DESTROY, &CVBRTrayWnd::OnDestroy},
        {WM_HOTKEY, &CVBRTrayWnd::OnHotKey},
        {WM_COMMAND, &CVBRTrayWnd::OnCommand},
        {kMsgInstallTrayIcon, &CVBRTrayWnd::OnInstallTrayIcon},
        {kMsgTrayNotify, &CVBRTrayWnd::OnTrayNotify},
        {kMsgCommandFromSelf, &CVBRTrayWnd::OnCommandFromSelf},
        {kMsgShowMenuRequest, &CVBRTrayWnd::OnShowMenuRequest},
    };
    if (message == instanceSignal_) {
        return OnInstanceSignal(wParam);
    }
    if (message == taskbarCreated_) {
        return OnTaskbarCreated();
    }
    return DispatchMessageMap(*this, kMap, message, wParam, lParam);
}

LRESULT CVBRTrayWnd::OnCreate(WPARAM, LPARAM) {
    CAppObjects::SetTrayWindow(Handle());
    SendMessageW(Handle(), WM_SETICON, ICON_SMALL,
                 reinterpret_cast<LPARAM>(
                     ProgramIcon(GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON))));
    SendMessageW(Handle(), WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(ProgramIcon(0, 0)));
    hotkeys_ = std::make_unique<WinHotkeyRegistrar>(Handle(), kHotkeyId);
    service_ = std::make_unique<HotkeyService>(HotkeyService::Parts{
        context_.Settings, hooks_, *hotkeys_, objects_, objects_, context_.TrayLog, messages_});
    if (context_.CmdLine.NoInstall()) {
        messages_.push_back(u"No install on launch. Flag specifided");
    } else {
        std::u16string ignored;
        InstallService(ignored);
    }
    icon_.StartInstallThread(Handle(), context_.Stop);
    SetWindowPos(Handle(), nullptr, -100, -100, 10, 10,
                 SWP_NOACTIVATE | SWP_NOZORDER | SWP_HIDEWINDOW);
    if (context_.CmdLine.Edit()) {
        PostMessageW(Handle(), WM_COMMAND, kCmdEditPhrases, 0);
    }
    StartWatchers();
    if (context_.CmdLine.ShowMenu()) {
        PostMessageW(Handle(), kMsgShowMenuRequest, 0, 0);
    }
    return 0;
}

LRESULT CVBRTrayWnd::OnDestroy(WPARAM, LPARAM) {
    context_.Stop.Set();
    service_->Stop();
    icon_.Delete(Handle());
    CAppObjects::SetTrayWindow(nullptr);
    return 0;
}

void CVBRTrayWnd::StartWatchers() {
    const HWND window = Handle();
    editWatcher_.Start(kEventEdit, EventReset::Manual, ObjectAccess::World, context_.Stop,
                       [window] { SendMessageW(window, WM_COMMAND, kCmdEditPhrases, 0); });
    showMenuWatcher_.Start(kEventShowMenu, EventReset::Automatic, ObjectAccess::World,
                           context_.Stop,
                           [window] { PostMessageW(window, kMsgShowMenuRequest, 0, 0); });
}

LRESULT CVBRTrayWnd::OnInstallTrayIcon(WPARAM, LPARAM) {
    const bool added = UpdateTrayIcon(TrayIconMode::Add, {}, false);
    if (!added) {
        context_.TrayLog.Write(u"ERROR: cannot install tray icon");
    }
    return added;
}

LRESULT CVBRTrayWnd::OnTrayNotify(WPARAM, LPARAM mouseMessage) {
    if (mouseMessage == WM_LBUTTONUP || mouseMessage == WM_RBUTTONUP ||
        mouseMessage == NIN_BALLOONUSERCLICK) {
        DisplayTrayMenuAtCursor();
    }
    return 0;
}

LRESULT CVBRTrayWnd::OnShowMenuRequest(WPARAM, LPARAM) {
    const CAutoForegroundWindow front(Handle());
    SetActiveWindow(Handle());
    MessageBeep(MB_ICONINFORMATION);
    DisplayTrayMenuAtCursor();
    return 0;
}

LRESULT CVBRTrayWnd::OnTaskbarCreated() {
    icon_.StartInstallThread(Handle(), context_.Stop);
    return 0;
}

LRESULT CVBRTrayWnd::OnInstanceSignal(WPARAM code) {
    if (code == kSignalAlreadyWorks) {
        if (!service_->IsInstalled()) {
            std::u16string ignored;
            InstallService(ignored);
        }
        UpdateTrayIcon(TrayIconMode::ModifyWithBalloon, context_.Texts.LoadString(kStrAlreadyWorks),
                       true);
    } else if (code == kSignalExit) {
        UpdateTrayIcon(TrayIconMode::ModifyWithBalloon, context_.Texts.LoadString(kStrExiting),
                       false);
        Sleep(kExitBalloonMs);
        PostMessageW(Handle(), WM_COMMAND, kCmdExit, 0);
    }
    return 0;
}

LRESULT CVBRTrayWnd::OnHotKey(WPARAM id, LPARAM) {
    if (id != kHotkeyId ||
        !doublePress_.Press(context_.Settings.HotkeyDoubled, clock_.TickCount()) ||
        !service_->IsInstalled() || builder_->IsMenuShown()) {
        return 0;
    }
    StartQuery();
    return 0;
}

void CVBRTrayWnd::StartQuery() {
    builder_->SetClipboardAtHotkey(clipboard_.UnicodeText());
    WPQuery query;
    if (hooks_.SendMessageToTargetWindow(query) == QueryStart::Local) {
        builder_->OnDataNeeded(query);
    }
}

LRESULT CVBRTrayWnd::OnCommandFromSelf(WPARAM choice, LPARAM target) {
    context_.TrayLog.Write(u"CVBRTrayWnd::OnWmCommandFromSelf");
    const auto id = static_cast<std::int32_t>(choice);
    if (id <= 0) {
        return 0;
    }
    const auto phrase = static_cast<std::uint32_t>(id);
    const DeliverResult result = delivery_.DeliverCommand(
        phrase, static_cast<WindowHandle>(target),
        {builder_->ClipboardAtHotkey(), builder_->SelectedText(), LanguageOf(builder_->Hkl())});
    if (result == DeliverResult::Phrase) {
        builder_->RememberCommand(phrase);
    }
    return 0;
}

LRESULT CVBRTrayWnd::OnCommand(WPARAM command, LPARAM) {
    switch (const int id = LOWORD(command)) {
        case kCmdEnableService:
            ToggleService();
            break;
        case kCmdRereadPhrases:
            LoadPhrases();
            UpdateTrayIcon(TrayIconMode::ModifyWithBalloon, {}, false);
            break;
        case kCmdExit:
            DestroyWindow(Handle());
            PostQuitMessage(0);
            break;
        default:
            context_.TrayLog.Write(Concat(u"Command ", id, u" is off"));
            break;
    }
    return 1;
}

bool CVBRTrayWnd::InstallService(std::u16string& errorText) {
    if (!builder_) {
        const HWND window = Handle();
        presenter_ = std::make_unique<PopupMenuPresenter>(window);
        builder_ = std::make_unique<IDataNeededHander_MenuSelf>(
            tree_, *presenter_, clock_,
            [window](std::int32_t choice, WindowHandle target) {
                PostMessageW(window, kMsgCommandFromSelf, static_cast<WPARAM>(choice),
                             static_cast<LPARAM>(target));
            },
            context_.TrayLog);
    }
    if (context_.Settings.WriteLog) {
        context_.TrayLog.StartLog(context_.Locations.LogFile);
    } else {
        context_.TrayLog.StopLog();
    }
    LoadPhrases();
    const HookServiceStart start{reinterpret_cast<WindowHandle>(Handle()), queryMessage_,
                                 context_.TrayLog.Path(), context_.TrayLog.Atom(),
                                 builder_->IsAllow_WaitAnswerFromExeAgent()};
    return service_->Install(start, context_.Access.FileExists(hooks_.LibraryPath()), errorText);
}

void CVBRTrayWnd::ToggleService() {
    if (service_->IsInstalled()) {
        service_->Stop();
    } else if (std::u16string error; !InstallService(error) && !error.empty()) {
        ShowMessage(u"ERROR\n\n" + error, MB_ICONERROR);
    }
    UpdateTrayIcon(TrayIconMode::ModifyWithBalloon, {}, false);
}

void CVBRTrayWnd::LoadPhrases() {
    tree_.LoadTree(EffectivePhrasesFolder(context_.Settings.PhrasesDirectory, context_.Locations,
                                          context_.Access));
}

bool CVBRTrayWnd::UpdateTrayIcon(TrayIconMode mode, std::u16string_view balloonText, bool warning) {
    TrayState state;
    state.ServiceInstalled = service_->IsInstalled();
    state.HotkeyName = service_->HotkeyName();
    state.PhrasesFolder = tree_.RootFolder().u16string();
    state.Phrases = tree_.CountCommands();
    const std::u16string firstLine = TrayFirstLine(state, context_.Texts);
    const std::u16string details = GetTrayInfoText(state, context_.Texts);
    TrayIconContent content;
    content.IconId = state.ServiceInstalled ? kIconProgram : kIconProgramOff;
    content.Tip = TrayTip(firstLine, details);
    content.InfoTitle = balloonText.empty() ? firstLine : Concat(firstLine, u", ", balloonText);
    content.Info = details;
    content.Warning = warning;
    return icon_.Update(Handle(), mode, content);
}

void CVBRTrayWnd::DisplayTrayMenuAtCursor() {
    POINT point{};
    GetCursorPos(&point);
    DisplayTrayMenu(point);
}

void CVBRTrayWnd::DisplayTrayMenu(POINT point) {
    const UniqueMenu menu = MakePopupMenu(
        BuildTrayMenu({service_->IsInstalled(), tree_.CountCommands()}, context_.Texts));
    EndMenu();
    SetForegroundWindow(Handle());
    const int command =
        TrackPopupMenu(menu.get(), TPM_RETURNCMD, point.x, point.y, 0, Handle(), nullptr);
    EndMenu();
    if (command != 0) {
        SendMessageW(Handle(), WM_COMMAND, static_cast<WPARAM>(command), 0);
    }
}

void CVBRTrayWnd::ShowMessage(const std::u16string& text, UINT flags) {
    MessageBoxW(Handle(), Wide(text), Wide(context_.Texts.LoadString(kStrProductName)), flags);
}

}  // namespace vbr
