// SPDX-License-Identifier: MIT
#include "shell/win32/application.h"

#include "platform/win32/windows.h"

#include <commctrl.h>
#include <objbase.h>

#include "base/text.h"
#include "base/version.h"
#include "platform/date_forms.h"
#include "platform/object_names.h"
#include "platform/win32/event_watcher.h"
#include "platform/win32/wide.h"
#include "platform/win32/win_keyboard_layouts.h"
#include "platform/win32/win_locale.h"
#include "platform/win32/win_menu_font.h"
#include "resources/resource_ids.h"
#include "settings/system_defaults.h"
#include "shell/tray_messages.h"
#include "shell/win32/app_objects.h"
#include "shell/win32/history_keeper.h"
#include "shell/win32/tray_window.h"

namespace vbr {
namespace {

constexpr const wchar_t* kForcedRoadVariable = L"VELLUMBRIDGE_QUERY_ROAD";

// Tests take the road of another system by an environment variable.
std::optional<RoadKind> ForcedRoad() {
    wchar_t word[16];
    const DWORD length = GetEnvironmentVariableW(kForcedRoadVariable, word, 16);
    return ParseRoad(FromWide(word, length < 16 ? length : 0));
}

std::u16string ModulePath() {
    std::u16string path(MAX_PATH, u'\0');
    DWORD length = 0;
    while ((length = GetModuleFileNameW(nullptr, Wide(path.data()),
                                        static_cast<DWORD>(path.size()))) == path.size()) {
        path.resize(path.size() * 2);
    }
    path.resize(length);
    return path;
}

SettingsFiles SettingsFilesOf(const FileLocations& locations) {
    return {locations.SettingsFile, locations.LocalSettings, locations.UserSettings,
            locations.ProgramFolder, locations.ModulePath.substr(locations.ProgramFolder.size())};
}

// COM and the controls that the windows use, for as long as this lives.
class WindowToolkit {
  public:
    WindowToolkit() {
        const INITCOMMONCONTROLSEX controls{sizeof controls,
                                            ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES};
        InitCommonControlsEx(&controls);
        initialized_ = SUCCEEDED(OleInitialize(nullptr));
    }
    ~WindowToolkit() {
        if (initialized_) {
            OleUninitialize();
        }
    }
    WindowToolkit(const WindowToolkit&) = delete;
    WindowToolkit& operator=(const WindowToolkit&) = delete;

  private:
    bool initialized_ = false;
};

int RunMessageLoop() {
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}

}  // namespace

Application::Application()
    : locations_(ChooseFileLocations(ModulePath(), access_)),
      settings_(
          profile_, SettingsFilesOf(locations_),
          ReadSystemDefaults(WinKeyboardLayouts(), WinLocale(), profile_, locations_.ProgramFolder,
                             SystemMenuFont(), [this] { return DateAndTime(); })),
      log_(clock_),
      report_(log_, strings_, alerts_),
      guard_(faults_, report_),
      rooms_(log_),
      instance_(objects_, autostart_, errors_, log_) {
    settings_.Load();
}

int Application::Main(std::u16string_view rawCmdLine) {
    if (settings_.WriteLog) {
        log_.StartLog(locations_.LogFile);
    }
    const CVBRCmdLine cmdLine(rawCmdLine);
    log_.Write(Concat(u"Start Vellumbridge ", VersionText(), u" with cmdline [", rawCmdLine,
                      u"] on ", DateAndTime()));
    const std::optional<int> exitCode = instance_.Settle(
        cmdLine, settings_.DelayAutoLoadSeconds, [] {}, [this] { ShowHelp(); });
    if (exitCode) {
        return *exitCode;
    }
    const int result = RunResident(cmdLine);
    instance_.Release();
    CAppObjects::TempFiles().DeleteAll(log_);
    WriteBanner(u"===End Vellum Bridge===");
    return result;
}

int Application::RunResident(const CVBRCmdLine& cmdLine) {
    NamedEvent& stop = *instance_.StopEvent();
    CAppObjects::SetStopEvent(&stop);
    const UINT signal = RegisterWindowMessageW(Wide(kMessageInstanceSignal.data()));
    EventWatcher exitWatcher;
    EventWatcher alreadyWorkWatcher;
    exitWatcher.Start(kEventExit, EventReset::Manual, ObjectAccess::World, stop, [signal] {
        SendMessageW(CAppObjects::TrayWindow(), signal, kSignalExit, 0);
    });
    alreadyWorkWatcher.Start(
        kEventAlreadyWork, EventReset::Manual, ObjectAccess::World, stop,
        [signal] { SendMessageW(CAppObjects::TrayWindow(), signal, kSignalAlreadyWorks, 0); });
    {
        const LogSection label(log_, u"TEMP PREFIX TEXT");
        WriteBanner(Concat(u"\n\n=============================\n===Start Vellumbridge ",
                           VersionText(), u" on ", DateAndTime(), u"==="));
    }
    const WindowToolkit toolkit;
    const auto optionsChanged =
        objects_.Create(kEventOptionsChanged, EventReset::Automatic, ObjectAccess::World);
    const int result = RunTrayWindow(cmdLine);
    CAppObjects::SetStopEvent(nullptr);
    instance_.SignalStop();
    return result;
}

int Application::RunTrayWindow(const CVBRCmdLine& cmdLine) {
    // Outlives the window, whose end sets the event that its threads wait for.
    HistoryKeeper history(settings_, locations_.ProgramFolder, *instance_.StopEvent(), log_);
    CVBRTrayWnd tray({settings_, profile_, locations_, access_, strings_, log_, guard_, cmdLine,
                      *instance_.StopEvent(), ForcedRoad(), rooms_.With(history)});
    return tray.Create() ? RunMessageLoop() : 0;
}

void Application::WriteBanner(std::u16string_view text) {
    log_.Write(Concat(text, u" ", DateAndTime()));
}

void Application::ShowHelp() {
    MessageBoxW(GetDesktopWindow(), Wide(CommandLineHelp(strings_)),
                Wide(strings_.LoadString(kStrProductName)), MB_ICONINFORMATION);
}

std::u16string Application::DateAndTime() const {
    const WinLocale locale;
    return FormatDateTime(DateTimeMode::DateTime, locale, locale.UserDefault(), clock_.LocalTime());
}

}  // namespace vbr
