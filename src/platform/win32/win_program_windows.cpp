// SPDX-License-Identifier: MIT
#include "platform/win32/win_program_windows.h"

#include "platform/win32/windows.h"

#include <array>
#include <shellapi.h>

#include "platform/win32/gdi_handle.h"
#include "platform/win32/program_path.h"
#include "platform/win32/wide.h"

namespace vbr {
namespace {

constexpr UINT kIconPatienceMs = 1000;
constexpr std::size_t kMaxTitle = 780;

HWND WindowOf(WindowHandle window) {
    return reinterpret_cast<HWND>(window);
}

// A copy, since the icon belongs to the window's program.
IconHandle Keep(HICON icon) {
    return icon ? UniqueIcon(CopyIcon(icon)) : nullptr;
}

HICON AskForIcon(HWND window, WPARAM size) {
    DWORD_PTR icon = 0;
    SendMessageTimeoutW(window, WM_GETICON, size, 0, SMTO_ABORTIFHUNG | SMTO_BLOCK, kIconPatienceMs,
                        &icon);
    return reinterpret_cast<HICON>(icon);
}

HICON ClassIcon(HWND window, int index) {
    return reinterpret_cast<HICON>(GetClassLongPtrW(window, index));
}

}  // namespace

WindowHandle WinProgramWindows::ParentOf(WindowHandle window) const {
    return reinterpret_cast<WindowHandle>(GetParent(WindowOf(window)));
}

std::u16string WinProgramWindows::TitleOf(WindowHandle window) const {
    std::array<wchar_t, kMaxTitle> title{};
    // Of a window of this process too, without a message to it.
    const int length =
        InternalGetWindowText(WindowOf(window), title.data(), static_cast<int>(title.size()));
    return FromWide(title.data(), static_cast<std::size_t>(length));
}

std::u16string WinProgramWindows::ProgramOf(WindowHandle window) const {
    DWORD id = 0;
    GetWindowThreadProcessId(WindowOf(window), &id);
    return ProgramPathOf(id);
}

IconHandle WinProgramWindows::IconOf(WindowHandle handle) const {
    const HWND window = WindowOf(handle);
    for (const WPARAM size : {ICON_BIG, ICON_SMALL}) {
        if (IconHandle icon = Keep(AskForIcon(window, size))) {
            return icon;
        }
    }
    for (const int index : {GCLP_HICON, GCLP_HICONSM}) {
        if (IconHandle icon = Keep(ClassIcon(window, index))) {
            return icon;
        }
    }
    return nullptr;
}

IconHandle WinProgramWindows::IconOfFile(std::u16string_view path) const {
    SHFILEINFOW info{};
    const bool found =
        SHGetFileInfoW(Wide(std::u16string(path)), 0, &info, sizeof info, SHGFI_ICON) != 0;
    return found ? UniqueIcon(info.hIcon) : nullptr;
}

}  // namespace vbr
