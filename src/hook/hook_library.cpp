// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include "exchange/install_params.h"
#include "hook/foreground_watch.h"
#include "hook/no_runtime.h"
#include "hook/posted_route.h"

// The hook library's side of the program. Its four exports are plain C, looked up by name. There is
// no C++ runtime behind it: no exceptions, no new, no objects that are made at the start.
namespace vbr::hook {
namespace {

constexpr std::size_t kNameMax = 260;  // of a kernel object, with the zero

constinit bool g_installed = false;

bool IsPostedRoute(QueryRouteChoice choice) {
    if (choice != QueryRouteChoice::OfSystem) {
        return choice == QueryRouteChoice::Posted;
    }
    BOOL emulated = FALSE;
    const bool is64BitWindows =
        sizeof(void*) == 8 || (IsWow64Process(GetCurrentProcess(), &emulated) && emulated);
    return !is64BitWindows;
}

bool IsName(const char16_t* name) {
    std::size_t length = 0;
    while (name && length < kNameMax && name[length]) {
        ++length;
    }
    return length > 0 && length < kNameMax;
}

std::uint32_t Install(const WPInstallParams& params) {
    if (g_installed) {
        return kHookAlreadyInstalled;
    }
    if (!IsName(params.DataNeededName) || !IsName(params.DataCompletedName) ||
        !IsName(params.InterchangeAreaName)) {
        return kHookBadNames;
    }
    if (!TheForegroundWatch().Start()) {
        return kHookNotHooked;
    }
    const std::uint32_t code =
        IsPostedRoute(params.Route) ? StartPostedRoute(params) : kHookSuccess;
    if (code != kHookSuccess) {
        TheForegroundWatch().Stop();
    }
    g_installed = code == kHookSuccess;
    return code;
}

bool Uninstall() {
    if (!StopPostedRoute() || !TheForegroundWatch().Stop()) {
        return false;
    }
    g_installed = false;
    return true;
}

// The window with the keyboard focus in the application in front.
HWND TargetWindow() {
    const HWND front = ForegroundWatch::InFront();
    if (!front) {
        return nullptr;
    }
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    const DWORD thread = GetWindowThreadProcessId(front, nullptr);
    const bool hasFocus = GetGUIThreadInfo(thread, &info) && IsForeign(info.hwndFocus);
    return hasFocus ? info.hwndFocus : front;
}

}  // namespace
}  // namespace vbr::hook

extern "C" {

// It makes what the stack protector compares with, so it has none itself.
__attribute__((no_stack_protector)) BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, void*) {
    if (reason == DLL_PROCESS_ATTACH) {
        vbr::hook::ArmStackProtector();
        DisableThreadLibraryCalls(module);
        vbr::hook::EnterProcess(module);
    }
    return TRUE;
}

// Takes the block for the time of the call. 0 with an error code in the block on failure.
int WP_Install(vbr::WPInstallParams* params) {
    if (!params) {
        return 0;
    }
    params->ErrorCode = vbr::hook::Install(*params);
    return params->ErrorCode == vbr::kHookSuccess;
}

// Not 0 when nothing of the library is in use any more. Belongs to the thread of WP_Install.
int WP_Uninstall() {
    return vbr::hook::Uninstall();
}

// The window with the keyboard focus in the application in front, null while that is this program.
HWND WP_GetTargetWindow() {
    return vbr::hook::TargetWindow();
}

// The top window that was in front last and isn't this program's, null when it is gone.
HWND WP_GetTargetWindowOther() {
    return vbr::hook::TheForegroundWatch().Last();
}

}  // extern "C"
