// SPDX-License-Identifier: MIT
#include "platform/win32/modal_loops.h"

#include "platform/win32/windows.h"

namespace vbr {
namespace {

BOOL CALLBACK EndIfDialog(HWND window, LPARAM) {
    if (GetClassLongPtrW(window, GCW_ATOM) == reinterpret_cast<ULONG_PTR>(WC_DIALOG)) {
        // Comes out of being moved by the mouse.
        PostMessageW(window, WM_KEYDOWN, VK_ESCAPE, 0);
        EndDialog(window, IDCANCEL);
    }
    return TRUE;
}

}  // namespace

void EndModalLoops() {
    EndMenu();
    EnumThreadWindows(GetCurrentThreadId(), EndIfDialog, 0);
}

}  // namespace vbr
