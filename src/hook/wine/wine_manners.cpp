// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <tlhelp32.h>

#include "hook/system_manners.h"
#include "platform/win32/handle.h"
#include "platform/win32/loaded_function.h"

// Wine keeps hook libraries loaded and sends no notice about the window in front.
namespace vbr::hook {
namespace {

bool RunsOnWine() {
    return FunctionOf<void (*)()>(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

constexpr DWORD kPatienceMs = 500;
constexpr DWORD kPauseMs = 5;

struct Round {
    HMODULE Library;
    wchar_t Path[MAX_PATH];
    ULONGLONG GiveUp;  // tick count
    DWORD Done;        // the process looked at last
};

constinit volatile LONG g_leaving = 0;

// Runs in the target. Its call holds the library once more than what Wine keeps; a thread of the
// system's own code gives that back, so that nothing of ours runs when the library goes.
LRESULT CALLBACK Leave(int code, WPARAM wParam, LPARAM lParam) {
    if (InterlockedExchange(&g_leaving, 1) == 0) {
        HMODULE self = nullptr;
        GetModuleHandleExW(
            GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
            reinterpret_cast<const wchar_t*>(&Leave), &self);
        const UniqueHandle thread(CreateThread(
            nullptr, 0,
            reinterpret_cast<LPTHREAD_START_ROUTINE>(reinterpret_cast<void*>(FreeLibrary)), self, 0,
            nullptr));
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

bool HasLibrary(DWORD process, const wchar_t* path) {
    const UniqueHandle modules(CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, process));
    MODULEENTRY32W module;
    module.dwSize = sizeof module;
    if (!IsValid(modules) || !Module32FirstW(modules.get(), &module)) {
        return false;
    }
    do {
        if (CompareStringOrdinal(module.szExePath, -1, path, -1, TRUE) == CSTR_EQUAL) {
            return true;
        }
    } while (Module32NextW(modules.get(), &module));
    return false;
}

BOOL CALLBACK LetGo(HWND window, LPARAM data) {
    auto& round = *reinterpret_cast<Round*>(data);
    DWORD process = 0;
    const DWORD thread = GetWindowThreadProcessId(window, &process);
    if (process == round.Done || process == GetCurrentProcessId()) {
        return TRUE;
    }
    round.Done = process;
    if (!HasLibrary(process, round.Path)) {
        return TRUE;
    }
    if (const HHOOK hook = SetWindowsHookExW(WH_GETMESSAGE, Leave, round.Library, thread)) {
        PostThreadMessageW(thread, WM_NULL, 0, 0);
        while (HasLibrary(process, round.Path) && GetTickCount64() < round.GiveUp) {
            Sleep(kPauseMs);
        }
        UnhookWindowsHookEx(hook);
    }
    return GetTickCount64() < round.GiveUp;
}

}  // namespace

DWORD ForegroundEvent() {
    // The focus follows the window in front.
    return RunsOnWine() ? EVENT_OBJECT_FOCUS : EVENT_SYSTEM_FOREGROUND;
}

void LetTargetsGo(HMODULE module) {
    if (!RunsOnWine()) {
        return;
    }
    Round round{module, {}, GetTickCount64() + kPatienceMs, 0};
    if (GetModuleFileNameW(module, round.Path, MAX_PATH) < MAX_PATH) {
        EnumWindows(LetGo, reinterpret_cast<LPARAM>(&round));
    }
}

}  // namespace vbr::hook
