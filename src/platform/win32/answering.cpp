// SPDX-License-Identifier: MIT
#include "platform/win32/answering.h"

namespace vbr {

bool Answers(HWND window, UINT patienceMs) {
    DWORD_PTR ignored = 0;
    return IsWindow(window) &&
           SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, patienceMs, &ignored) != 0;
}

}  // namespace vbr
