// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <benchmark/benchmark.h>
#include <psapi.h>

#include "desktop/driver/keyboard.h"
#include "desktop/driver/notepad.h"
#include "exchange/clipboard_snapshot.h"
#include "exchange/hook_service.h"
#include "exchange/win32/hook_module.h"
#include "exchange/win32/win_desktops.h"
#include "fakes/fake_clock.h"
#include "fakes/memory_log.h"
#include "platform/clipboard_text.h"
#include "platform/my_copy.h"
#include "platform/win32/handle.h"
#include "platform/win32/wide.h"
#include "platform/win32/win_ansi_text.h"
#include "platform/win32/win_clipboard_access.h"
#include "platform/win32/win_desktop_windows.h"
#include "platform/win32/win_input_injector.h"
#include "platform/win32/win_named_objects.h"
#include "ratio.h"

namespace vbr::bench {
namespace {

constexpr int kHotkey = 1;
constexpr double kBound = 1.3;

struct QuietLog : MemoryLog {
    bool IsLogOn() const override { return false; }
};

// From the press to the moment at which the menu would be built. The clock's waits take no time.
struct PressToMenu {
    QuietLog Log;
    FakeClock Clock;
    WinNamedObjects Objects;
    WinDesktops Desktops;
    WinDesktopWindows Windows;
    WinAnsiText Ansi;
    WinInputInjector Input;
    WinClipboardAccess Access;
    CClipboardSnapshot Snapshot{Access, Log};
    MyCopyGuard OwnCopy{Clock, Log};
    SelectedTextReader Selection{{.Clipboard = Access,
                                  .Ansi = Ansi,
                                  .Input = Input,
                                  .Windows = Windows,
                                  .Clock = Clock,
                                  .OwnCopy = OwnCopy}};
    LocalRoute Local{Windows, Selection};
    HookModule Library;
    CVBRDLLService Hooks{{.Library = Library,
                          .LibraryPath = u"",
                          .Objects = Objects,
                          .Windows = Windows,
                          .Route = Local,
                          .Log = Log}};

    PressToMenu(HWND window, const std::u16string& library) : Access(window), Library(library) {
        Hooks.InstallDLLService({.TrayWindow = reinterpret_cast<WindowHandle>(window)});
    }
    ~PressToMenu() { Hooks.UninstallDLLService(); }

    void OnHotkey() {
        benchmark::DoNotOptimize(MayServeHotkey(Desktops, Log));
        std::u16string text = ReadUnicodeText(Access);
        benchmark::DoNotOptimize(text);
        Selection.AllowCopy(Snapshot.Take());
        WPQuery query;
        query.GuiThreadInfo = Windows.OwnGuiThread();
        benchmark::DoNotOptimize(Hooks.SendMessageToTargetWindow(0, query));
        // Nobody counts what the snapshot puts back.
        Snapshot.ClearRestore();
    }
};

std::wstring NameOf(HDESK desktop) {
    wchar_t name[100] = L"";
    GetUserObjectInformationW(desktop, UOI_NAME, name, sizeof name, nullptr);
    return name;
}

void AskOwner() {
    DWORD_PTR ignored = 0;
    if (const HWND owner = GetClipboardOwner()) {
        SendMessageTimeoutW(owner, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, 200, &ignored);
    }
}

std::wstring ReadText() {
    std::wstring text;
    if (IsClipboardFormatAvailable(CF_UNICODETEXT) && OpenClipboard(nullptr)) {
        AskOwner();
        const HANDLE data = GetClipboardData(CF_UNICODETEXT);
        if (const auto* units = data ? static_cast<const wchar_t*>(GlobalLock(data)) : nullptr) {
            text = units;
            GlobalUnlock(data);
        }
        CloseClipboard();
    }
    return text;
}

void CopyFormats(HWND window) {
    if (!OpenClipboard(window)) {
        return;
    }
    for (UINT format = 0; (format = EnumClipboardFormats(format)) != 0;) {
        wchar_t name[256];
        GetClipboardFormatNameW(format, name, 256);
        AskOwner();
        const HANDLE data = GetClipboardData(format);
        if (const void* bytes = data ? GlobalLock(data) : nullptr) {
            benchmark::DoNotOptimize(
                std::string(static_cast<const char*>(bytes), GlobalSize(data)));
            GlobalUnlock(data);
        }
    }
    CloseClipboard();
}

// The same calls, with nothing around them.
void Bare(HWND window) {
    benchmark::DoNotOptimize(NameOf(GetThreadDesktop(GetCurrentThreadId())));
    const HDESK input = OpenInputDesktop(0, FALSE, MAXIMUM_ALLOWED);
    benchmark::DoNotOptimize(NameOf(input));
    CloseDesktop(input);
    benchmark::DoNotOptimize(ReadText());
    CopyFormats(window);
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetCurrentThreadId(), &info);
    const HWND front = GetForegroundWindow();
    DWORD process = 0;
    const DWORD thread = GetWindowThreadProcessId(front, &process);
    GetGUIThreadInfo(thread, &info);
    const HWND target = info.hwndFocus ? info.hwndFocus : front;
    if (OpenClipboard(nullptr)) {
        EmptyClipboard();
        CloseClipboard();
    }
    INPUT keys[4]{};
    for (int i = 0; i < 4; ++i) {
        keys[i].type = INPUT_KEYBOARD;
        keys[i].ki.wVk = i == 0 || i == 3 ? VK_CONTROL : 'C';
        keys[i].ki.dwFlags = KEYEVENTF_UNICODE | (i < 2 ? 0U : DWORD{KEYEVENTF_KEYUP});
    }
    SendInput(4, keys, sizeof keys[0]);
    DWORD_PTR ignored = 0;
    SendMessageTimeoutW(target, WM_COPY, 0, 0, SMTO_ABORTIFHUNG, 2000, &ignored);
    benchmark::DoNotOptimize(ReadText());
    GetWindowThreadProcessId(target, &process);
    const UniqueHandle handle(
        OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, process));
    wchar_t path[MAX_PATH];
    GetModuleFileNameExW(handle.get(), nullptr, path, MAX_PATH);
    benchmark::DoNotOptimize(GetKeyboardLayout(thread));
    wchar_t name[256];
    GetClassNameW(target, name, 256);
}

// The keys take the same way in both.
void PressAndWait(HWND window) {
    desktop::PressHotkey();
    MSG message;
    while (GetMessageW(&message, window, WM_HOTKEY, WM_HOTKEY) > 0 && message.wParam != kHotkey) {
    }
}

void HotkeyToMenu(benchmark::State& state) {
    const desktop::Notepad notepad;
    notepad.SetText(u"one two three");
    notepad.Select(4, 7);
    const HWND window =
        CreateWindowExW(0, L"Static", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    RegisterHotKey(window, kHotkey, MOD_CONTROL | MOD_ALT, VK_RETURN);
    const wchar_t* folder = _wgetenv(L"VELLUMBRIDGE_FOLDER");
    PressToMenu route(window, Concat(std::u16string_view(FromWide(folder)), u"\\Vellumbridge.dll"));
    if (!route.Hooks.IsInstalled()) {
        state.SkipWithError("the hook library is not there");
        return;
    }
    MeasureRatio(
        state, kBound,
        [&] {
            PressAndWait(window);
            route.OnHotkey();
        },
        [&] {
            PressAndWait(window);
            Bare(window);
        });
    UnregisterHotKey(window, kHotkey);
    DestroyWindow(window);
}
BENCHMARK(HotkeyToMenu)->Iterations(Rounds(101))->UseManualTime();

}  // namespace
}  // namespace vbr::bench
