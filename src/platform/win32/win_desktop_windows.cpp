// SPDX-License-Identifier: MIT
#include "platform/win32/win_desktop_windows.h"

#include "platform/win32/windows.h"

#include <tlhelp32.h>

#include "platform/win32/handle.h"
#include "platform/win32/program_path.h"
#include "platform/win32/wide.h"

namespace vbr {
namespace {

constexpr UINT kAnswerMs = 200;
constexpr int kClassNameMax = 1024;

HWND ToWindow(WindowHandle window) {
    return reinterpret_cast<HWND>(window);
}

WindowHandle FromWindow(HWND window) {
    return reinterpret_cast<WindowHandle>(window);
}

std::u16string FileName(DWORD process) {
    const UniqueHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    if (!IsValid(snapshot) || !Process32FirstW(snapshot.get(), &entry)) {
        return {};
    }
    do {
        if (entry.th32ProcessID == process) {
            return FromWide(entry.szExeFile);
        }
    } while (Process32NextW(snapshot.get(), &entry));
    return {};
}

}  // namespace

bool WinDesktopWindows::IsWindow(WindowHandle window) const {
    return ::IsWindow(ToWindow(window)) != 0;
}

WindowThread WinDesktopWindows::ThreadOf(WindowHandle window) const {
    DWORD process = 0;
    const DWORD thread = GetWindowThreadProcessId(ToWindow(window), &process);
    return {thread, process};
}

std::u16string WinDesktopWindows::ProgramPath(std::uint32_t process) const {
    const std::u16string path = ProgramPathOf(process);
    return path.empty() ? FileName(process) : path;
}

std::optional<std::uint32_t> WinDesktopWindows::BinaryType(const std::u16string& path) const {
    DWORD type = 0;
    return GetBinaryTypeW(Wide(path), &type) ? std::optional<std::uint32_t>(type) : std::nullopt;
}

bool WinDesktopWindows::HasOwnBitness(std::uint32_t process) const {
    const UniqueHandle handle(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, process));
    BOOL its = FALSE;
    BOOL own = FALSE;
    return !IsWow64Process(handle.get(), &its) || !IsWow64Process(GetCurrentProcess(), &own) ||
           its == own;
}

std::u16string WinDesktopWindows::ClassName(WindowHandle window) const {
    wchar_t name[kClassNameMax];
    const int length = GetClassNameW(ToWindow(window), name, kClassNameMax);
    return FromWide(name, static_cast<std::size_t>(length));
}

WindowHandle WinDesktopWindows::RootOf(WindowHandle window) const {
    return FromWindow(GetAncestor(ToWindow(window), GA_ROOT));
}

std::optional<bool> WinDesktopWindows::HasSelection(WindowHandle edit) const {
    const HWND window = ToWindow(edit);
    if ((GetWindowLongW(window, GWL_STYLE) & ES_PASSWORD) != 0) {
        return false;
    }
    DWORD_PTR range = 0;
    if (!SendMessageTimeoutW(window, EM_GETSEL, 0, 0, SMTO_ABORTIFHUNG, kAnswerMs, &range)) {
        return false;
    }
    // Places above 16 bits come as 0xFFFF.
    const bool isTold = LOWORD(range) != 0xFFFF && HIWORD(range) != 0xFFFF;
    return isTold ? std::optional(LOWORD(range) != HIWORD(range)) : std::nullopt;
}

LayoutHandle WinDesktopWindows::KeyboardLayout(std::uint32_t thread) const {
    return static_cast<LayoutHandle>(reinterpret_cast<std::uintptr_t>(GetKeyboardLayout(thread)) &
                                     0xFFFFFFFF);
}

GuiThreadWindows WinDesktopWindows::OwnGuiThread() const {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    if (!GetGUIThreadInfo(GetCurrentThreadId(), &info)) {
        return {};
    }
    return {FromWindow(info.hwndActive), FromWindow(info.hwndFocus), FromWindow(info.hwndCapture),
            FromWindow(info.hwndMenuOwner), FromWindow(info.hwndCaret)};
}

bool WinDesktopWindows::Post(WindowHandle window, std::uint32_t message, std::uintptr_t wParam) {
    return PostMessageW(ToWindow(window), message, wParam, 0) != 0;
}

void WinDesktopWindows::SendCopy(WindowHandle window, std::uint32_t patienceMs) {
    DWORD_PTR ignored = 0;
    SendMessageTimeoutW(ToWindow(window), WM_COPY, 0, 0, SMTO_ABORTIFHUNG, patienceMs, &ignored);
}

}  // namespace vbr
