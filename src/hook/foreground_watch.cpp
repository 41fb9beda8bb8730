// SPDX-License-Identifier: MIT
#include "hook/foreground_watch.h"

#include "hook/system_manners.h"

namespace vbr::hook {
namespace {

// A click on the tray icon brings the taskbar to the front, where nobody works.
bool IsTaskbar(HWND window) {
    constexpr int kClassMax = 64;
    wchar_t name[kClassMax] = {};
    GetClassNameW(window, name, kClassMax);
    constexpr const wchar_t* kTaskbars[] = {L"Shell_TrayWnd", L"Shell_SecondaryTrayWnd",
                                            L"NotifyIconOverflowWindow"};
    for (const wchar_t* taskbar : kTaskbars) {
        if (CompareStringOrdinal(name, -1, taskbar, -1, TRUE) == CSTR_EQUAL) {
            return true;
        }
    }
    return false;
}

}  // namespace

bool IsForeign(HWND window) {
    DWORD process = 0;
    return window && GetWindowThreadProcessId(window, &process) && process != GetCurrentProcessId();
}

bool ForegroundWatch::Start() {
    const DWORD event = ForegroundEvent();
    hook_ = SetWinEventHook(event, event, nullptr, Notice, 0, 0,
                            WINEVENT_OUTOFCONTEXT | WINEVENT_SKIPOWNPROCESS);
    last_ = nullptr;
    Remember(GetForegroundWindow());
    return hook_ != nullptr;
}

bool ForegroundWatch::Stop() {
    if (hook_ && !UnhookWinEvent(hook_)) {
        return false;
    }
    hook_ = nullptr;
    return true;
}

HWND ForegroundWatch::InFront() {
    const HWND window = GetForegroundWindow();
    return IsForeign(window) ? window : nullptr;
}

HWND ForegroundWatch::Last() {
    Remember(GetForegroundWindow());
    // The number of a window that is gone may belong to another one by now.
    return IsForeign(last_) ? last_ : nullptr;
}

void ForegroundWatch::Remember(HWND window) {
    if (IsForeign(window) && !IsTaskbar(window)) {
        last_ = window;
    }
}

void ForegroundWatch::Notice(HWINEVENTHOOK, DWORD, HWND window, LONG, LONG, DWORD, DWORD) {
    TheForegroundWatch().Remember(GetAncestor(window, GA_ROOT));
}

ForegroundWatch& TheForegroundWatch() {
    static constinit ForegroundWatch watch;
    return watch;
}

}  // namespace vbr::hook
