// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <commctrl.h>

#include "platform/object_names.h"
#include "platform/win32/common_controls.h"
#include "platform/win32/system_library.h"
#include "platform/win32/win_hotkey_registrar.h"
#include "platform/win32/win_shell_opener.h"
#include "settings/hotkey_text.h"
#include "settings/win32/companion_context.h"
#include "welcome/win32/welcome_window.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    using namespace vbr;
    SearchSystemFolderOnly();
    UseCommonControls(ICC_STANDARD_CLASSES);
    CompanionContext context;
    context.Settings().NoteWelcomeStarted();
    WinShellOpener opener;
    WelcomeWindow window(
        {.Texts = context.Texts(),
         .Keys =
             [&context] {
                 CVBRSettings& settings = context.Settings();
                 settings.Load();
                 const std::u16string key =
                     WinHotkeyRegistrar(nullptr, 0).KeyName(settings.HotkeyVk);
                 return WelcomeKeys(HotkeyText(settings.HotkeyMods, key), settings.Hotkey_Doubled,
                                    context.Texts());
             },
         .Facts =
             [&context] {
                 return WelcomeFacts{.IsRunning = context.Objects().Exists(kEventInstance),
                                     .IsHotkeyOn = context.Objects().Exists(kEventDataNeeded),
                                     .Box = {}};
             },
         .StartProgram =
             [&] {
                 opener.Start(0, {.Path = context.Locations().ProgramFolder + u"Vellumbridge.exe"});
             },
         .StartEditor = [&] { opener.Start(0, {.Path = context.Locations().Editor()}); }});
    window.Run();
    return 0;
}
