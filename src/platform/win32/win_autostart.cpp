// SPDX-License-Identifier: MIT
#include "platform/win32/win_autostart.h"

#include "platform/win32/handle.h"

namespace vbr {

void WinAutostart::Delete() {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Microsoft\\Windows\\CurrentVersion\\Run", 0,
                      KEY_SET_VALUE, &key) == ERROR_SUCCESS) {
        const UniqueRegKey owned(key);
        RegDeleteValueW(key, L"Vellumbridge");
    }
}

}  // namespace vbr
