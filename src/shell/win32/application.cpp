// SPDX-License-Identifier: MIT
#include "shell/win32/application.h"

#include "platform/win32/windows.h"

#include <commctrl.h>
#include <objbase.h>

#include "base/text.h"
#include "base/version.h"
#include "platform/date_forms.h"
#include "platform/object_names.h"
#include "platform/win32/common_controls.h"
#include "platform/win32/module_path.h"
#include "platform/win32/own_file.h"
#include "platform/win32/wide.h"
#include "platform/win32/win_menu_font.h"
#include "resources/resource_ids.h"
#include "settings/system_defaults.h"
#include "shell/settings_reader.h"
#include "shell/tray_messages.h"
#include "shell/win32/tray_window.h"

namespace vbr {
namespace {

// COM and the controls that the windows use, for as long as this lives.
class WindowToolkit {
  public:
    WindowToolkit() {
        UseCommonControls(ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES);
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

int RunMessageLoop(const CVBRTrayWnd& tray) {
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
        // Only here is no menu and no dialog open any more.
        if (tray.IsEnding()) {
            return 0;
        }
    }
    return static_cast<int>(message.wParam);
}

}  // namespace

Application::Application(std::optional<RouteKind> forcedRoute)
    : forcedRoute_(forcedRoute),
      locations_(ChooseFileLocations(ModulePath(), access_)),
      settings_(profile_, SettingsFilesOf(locations_),
                ReadSystemDefaults(layouts_, locale_, profile_, locations_.ProgramFolder,
                                   SystemMenuFont(), [this] { return DateAndTime(); })),
      log_(clock_),
      report_(log_, strings_, alerts_),
      guard_(faults_, report_),
      taken_(log_),
      instance_(objects_, autostart_, clock_, taken_, log_) {}

int Application::Main(std::u16string_view rawCmdLine) {
    ReadSettingsAtStart(settings_, clock_);
    StartLogIfWanted();
    const CVBRCmdLine cmdLine(rawCmdLine);
    log_.Write(Concat(u"Start Vellumbridge ", VersionText(), u" with cmdline [", rawCmdLine,
                      u"] on ", DateAndTime()));
    const std::optional<int> exitCode =
        instance_.Settle(cmdLine, settings_.DelayAutoLoadSeconds,
                         {.MakeLanguage = [] {},
                          .ShowHelp = [this] { ShowHelp(); },
                          .LetOthersToFront = [] { AllowSetForegroundWindow(ASFW_ANY); }});
    if (exitCode) {
        return *exitCode;
    }
    // It may have waited.
    if (!settings_.WasRead() && settings_.Load()) {
        StartLogIfWanted();
    }
    const int result = RunResident(cmdLine);
    instance_.Release();
    tempFiles_.DeleteAll([](const auto& path) { return DeleteOwnFile(path); }, log_);
    WriteBanner(u"===End Vellum Bridge===");
    return result;
}

void Application::StartLogIfWanted() {
    if (settings_.WriteLog) {
        log_.StartLog(locations_.LogFile);
    }
}

int Application::RunResident(const CVBRCmdLine& cmdLine) {
    ForcedEnd bound(log_);
    const WindowToolkit toolkit;
    NamedEvent& stop = *instance_.StopEvent();
    NamedEventThread events(objects_, stop, log_);
    CVBRTrayWnd tray({.Settings = settings_,
                      .Profile = profile_,
                      .Locations = locations_,
                      .Access = access_,
                      .Texts = strings_,
                      .Clock = clock_,
                      .Locale = locale_,
                      .Layouts = layouts_,
                      .Objects = objects_,
                      .Faults = faults_,
                      .Guard = guard_,
                      .Log = log_,
                      .CmdLine = cmdLine,
                      .Messages = messages_,
                      .Stop = stop,
                      .Bound = bound,
                      .Events = events,
                      .Instance = instance_,
                      .Autostart = autostart_,
                      .Taken = taken_,
                      .ForcedRoute = forcedRoute_});
    const auto signal = [&tray](std::uintptr_t code) {
        const UINT message = RegisterWindowMessageW(Wide(kMessageInstanceSignal.data()));
        return [&tray, message, code] { PostMessageW(tray.Handle(), message, code, 0); };
    };
    const auto watch = [&](std::u16string_view name, const std::function<void()>& onSignal) {
        if (!events.Watch(name, EventReset::Manual, ObjectAccess::World, onSignal)) {
            taken_.Note(name);
        }
    };
    watch(kEventExit, [&bound, post = signal(kSignalExit)] {
        bound.Begin();
        post();
    });
    watch(kEventAlreadyWork, signal(kSignalAlreadyWorks));
    {
        const LogSection label(log_, u"TEMP PREFIX TEXT");
        WriteBanner(Concat(u"\n\n=============================\n===Start Vellumbridge ",
                           VersionText(), u" on ", DateAndTime(), u"==="));
    }
    const auto optionsChanged =
        objects_.Create(kEventOptionsChanged, EventReset::Automatic, ObjectAccess::World);
    if (!optionsChanged) {
        taken_.Note(kEventOptionsChanged);
    }
    const int result = tray.Create() ? RunMessageLoop(tray) : 0;
    taken_.OnNoted(nullptr);
    instance_.SignalStop();
    return result;
}

void Application::WriteBanner(std::u16string_view text) {
    log_.Write(Concat(text, u" ", DateAndTime()));
}

void Application::ShowHelp() {
    MessageBoxW(GetDesktopWindow(), Wide(CommandLineHelp(strings_)),
                Wide(strings_.LoadString(kStrProductName)), MB_ICONINFORMATION);
}

std::u16string Application::DateAndTime() const {
    return FormatDateTime(DateTimeMode::DateTime, locale_, locale_.UserDefault(),
                          clock_.LocalTime());
}

}  // namespace vbr
