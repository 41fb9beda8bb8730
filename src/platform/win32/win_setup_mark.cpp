// SPDX-License-Identifier: MIT
#include "platform/win32/win_setup_mark.h"

#include "platform/win32/windows.h"

namespace vbr {

bool IsInstalledBySetup() {
    wchar_t text[50];  // 99 bytes and the terminator
    DWORD bytes = sizeof text;
    return RegGetValueW(HKEY_CURRENT_USER, L"Software\\Nimbletree\\Vellumbridge", L"FromInstaller",
                        RRF_RT_REG_SZ, nullptr, text, &bytes) == ERROR_SUCCESS &&
           text[0] != L'\0';
}

}  // namespace vbr
