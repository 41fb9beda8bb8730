// SPDX-License-Identifier: MIT
#include "platform/win32/win_autostart.h"

#include "platform/win32/windows.h"

#include "platform/win32/wide.h"

namespace vbr {
namespace {

constexpr wchar_t kRunKey[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Run";
// The system's list of startup programs: the first byte of a value is odd when the user has
// switched the program off.
constexpr wchar_t kListKey[] =
    L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\StartupApproved\\Run";
constexpr wchar_t kName[] = L"Vellumbridge";

bool IsSwitchedOff() {
    BYTE mark[64];
    DWORD size = sizeof mark;
    return RegGetValueW(HKEY_CURRENT_USER, kListKey, kName, RRF_RT_REG_BINARY, nullptr, mark,
                        &size) == ERROR_SUCCESS &&
           size > 0 && (mark[0] & 1) != 0;
}

}  // namespace

std::optional<std::u16string> WinAutostart::Read() const {
    constexpr DWORD kTexts = RRF_RT_REG_SZ;  // one with variables comes expanded
    DWORD bytes = 0;
    if (IsSwitchedOff() || RegGetValueW(HKEY_CURRENT_USER, kRunKey, kName, kTexts, nullptr, nullptr,
                                        &bytes) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    std::u16string text(bytes / sizeof(char16_t) + 1, u'\0');
    bytes = static_cast<DWORD>(text.size() * sizeof(char16_t));
    if (RegGetValueW(HKEY_CURRENT_USER, kRunKey, kName, kTexts, nullptr, text.data(), &bytes) !=
        ERROR_SUCCESS) {
        return std::nullopt;
    }
    text.resize(text.find(u'\0') == text.npos ? text.size() : text.find(u'\0'));
    return text;
}

bool WinAutostart::Write(std::u16string_view commandLine) {
    const std::u16string text(commandLine);
    return RegSetKeyValueW(HKEY_CURRENT_USER, kRunKey, kName, REG_SZ, text.c_str(),
                           static_cast<DWORD>((text.size() + 1) * sizeof(char16_t))) ==
           ERROR_SUCCESS;
}

void WinAutostart::Delete() {
    RegDeleteKeyValueW(HKEY_CURRENT_USER, kRunKey, kName);
}

void WinAutostart::Allow() {
    RegDeleteKeyValueW(HKEY_CURRENT_USER, kListKey, kName);
}

}  // namespace vbr
