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
      taskbarCreated_(Registered(kMessageTaskbarCreated)) {}

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
    road_ = std::make_unique<PhraseRoad>(
        PhraseRoad::Parts{context_.Settings, context_.Locations, context_.Access, context_.TrayLog,
                          messages_},
        Handle());
    if (context_.CmdLine.NoInstall()) {
        messages_.push_back(u"No install on launch. Flag specifided");
    } else {
        std::u16string ignored;
        road_->InstallService(ignored);
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
    road_->StopService();
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
        if (!road_->IsServiceInstalled()) {
            std::u16string ignored;
            road_->InstallService(ignored);
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
        !road_->IsServiceInstalled() || road_->IsMenuShown()) {
        return 0;
    }
    road_->StartQuery();
    return 0;
}

LRESULT CVBRTrayWnd::OnCommandFromSelf(WPARAM choice, LPARAM target) {
    context_.TrayLog.Write(u"CVBRTrayWnd::OnWmCommandFromSelf");
    road_->Deliver(static_cast<std::int32_t>(choice), static_cast<WindowHandle>(target));
    return 0;
}

LRESULT CVBRTrayWnd::OnCommand(WPARAM command, LPARAM) {
    switch (const int id = LOWORD(command)) {
        case kCmdEnableService:
            ToggleService();
            break;
        case kCmdRereadPhrases:
            road_->LoadPhrases();
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

void CVBRTrayWnd::ToggleService() {
    if (road_->IsServiceInstalled()) {
        road_->StopService();
    } else if (std::u16string error; !road_->InstallService(error) && !error.empty()) {
        ShowMessage(u"ERROR\n\n" + error, MB_ICONERROR);
    }
    UpdateTrayIcon(TrayIconMode::ModifyWithBalloon, {}, false);
}

bool CVBRTrayWnd::UpdateTrayIcon(TrayIconMode mode, std::u16string_view balloonText, bool warning) {
    TrayState state;
    state.ServiceInstalled = road_->IsServiceInstalled();
    state.HotkeyName = road_->HotkeyName();
    state.PhrasesFolder = road_->PhrasesFolder().u16string();
    state.Phrases = road_->CountPhrases();
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
        BuildTrayMenu({road_->IsServiceInstalled(), road_->CountPhrases()}, context_.Texts));
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
