// SPDX-License-Identifier: MIT
#include "platform/win32/win_program_starter.h"

#include "platform/win32/windows.h"

#include <algorithm>
#include <shellapi.h>
#include <string>

#include "base/text.h"
#include "platform/win32/answering.h"
#include "platform/win32/loaded_function.h"
#include "platform/win32/wide.h"
#include "platform/win32/win_system_error.h"

namespace vbr {
namespace {

constexpr std::intptr_t kLastShellError = 32;
constexpr const char16_t* kAppPaths = u"Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\";

// The call's own report counts, so it must not go on in another thread; the box is this program's.
constexpr ULONG kStartFlags = SEE_MASK_NOASYNC | SEE_MASK_FLAG_NO_UI;
// The target had the foreground until now, so an ordinary box might open below its window.
constexpr UINT kBoxFlags = MB_ICONEXCLAMATION | MB_SETFOREGROUND | MB_TOPMOST;

DWORD AttributesOf(std::u16string_view path) {
    return GetFileAttributesW(Wide(std::u16string(path)));
}

// What a call writes that tells the length without the end, or with it when the room is too small.
template <typename Call>
std::optional<std::u16string> TextFrom(Call call) {
    std::u16string text(MAX_PATH, u'\0');
    DWORD length = 0;
    while ((length = call(Wide(text.data()), static_cast<DWORD>(text.size()))) >= text.size()) {
        text.resize(length + 1);
    }
    text.resize(length);
    return length == 0 ? std::nullopt : std::optional(text);
}

// The file that is registered for a program's name; empty when none is.
std::u16string RegisteredProgram(std::u16string_view name) {
    const bool hasExtension = name.find(u'.') != name.npos;
    const std::u16string key = Concat(kAppPaths, name, hasExtension ? u"" : u".exe");
    for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
        wchar_t path[MAX_PATH]{};
        DWORD size = sizeof path;
        if (RegGetValueW(root, Wide(key), nullptr, RRF_RT_REG_SZ, nullptr, path, &size) ==
            ERROR_SUCCESS) {
            return std::u16string(Trim(FromWide(path), u"\" "));
        }
    }
    return {};
}

// The shell of Wine writes a long path beyond its room, and this program would fall.
bool IsTooLongForShell(std::u16string_view path) {
    return path.size() >= MAX_PATH &&
           FunctionOf<void (*)()>(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

// With it Wine opens such an address, as its shell would.
std::optional<std::u16string_view> OpenerOf(std::u16string_view path) {
    for (const std::u16string_view scheme : {u"http:", u"https:", u"ftp:", u"mailto:"}) {
        if (StartsWithNoCase(path, scheme)) {
            return u"winebrowser.exe";
        }
    }
    return std::nullopt;
}

}  // namespace

bool WinProgramStarter::IsFile(std::u16string_view path) const {
    const DWORD attributes = AttributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool WinProgramStarter::IsFolder(std::u16string_view path) const {
    const DWORD attributes = AttributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::optional<std::u16string> WinProgramStarter::FindProgram(std::u16string_view name) const {
    if (name.find_first_of(u"\\/") == name.npos) {
        std::u16string registered = RegisteredProgram(name);
        if (IsFile(registered)) {
            return registered;
        }
    }
    const std::u16string file(name);
    for (const wchar_t* extension : {L".exe", L".com", L".bat", L".cmd"}) {
        auto found = TextFrom([&](wchar_t* buffer, DWORD size) {
            return SearchPathW(nullptr, Wide(file), extension, size, buffer, nullptr);
        });
        if (found && IsFile(*found)) {
            return found;
        }
    }
    return std::nullopt;
}

std::optional<std::u16string> WinProgramStarter::EnvironmentVariable(
    std::u16string_view name) const {
    const std::u16string variable(name);
    SetLastError(ERROR_SUCCESS);
    auto value = TextFrom([&](wchar_t* buffer, DWORD size) {
        return GetEnvironmentVariableW(Wide(variable), buffer, size);
    });
    return value || GetLastError() != ERROR_SUCCESS ? value : std::optional(std::u16string());
}

std::optional<SystemError> WinProgramStarter::Start(std::u16string_view path,
                                                    std::u16string_view parameters) {
    if (IsTooLongForShell(path)) {
        const auto opener = OpenerOf(path);
        return opener ? Start(*opener, Concat(u" \"", path, u"\""))
                      : SystemErrorOf(ERROR_FILENAME_EXCED_RANGE);
    }
    const std::u16string file(path);
    const std::u16string rest(parameters);
    const DWORD before = GetLastError();
    SHELLEXECUTEINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = kStartFlags;
    info.lpVerb = L"open";
    info.lpFile = Wide(file);
    info.lpParameters = rest.empty() ? nullptr : Wide(rest);
    info.nShow = SW_SHOW;
    SetLastError(ERROR_SUCCESS);
    ShellExecuteExW(&info);
    const DWORD error = GetLastError();
    SetLastError(before);
    const auto answer = reinterpret_cast<std::intptr_t>(info.hInstApp);
    if (answer > kLastShellError) {
        return std::nullopt;
    }
    return SystemErrorOf(error != ERROR_SUCCESS ? error : static_cast<DWORD>(answer));
}

SystemError WinProgramStarter::FileNotFound() const {
    return SystemErrorOf(ERROR_FILE_NOT_FOUND);
}

void WinProgramStarter::TellFailure(WindowHandle owner, std::u16string_view text,
                                    std::u16string_view title) {
    const HWND window = reinterpret_cast<HWND>(owner);
    const std::u16string shown(text);
    const std::u16string caption(title);
    const DWORD before = GetLastError();
    MessageBeep(0xFFFFFFFF);
    // A box over a window that hangs would hang with it; some windows let none over them.
    const bool isOver =
        Answers(window) && MessageBoxW(window, Wide(shown), Wide(caption), kBoxFlags) != 0;
    if (!isOver) {
        MessageBoxW(nullptr, Wide(shown), Wide(caption), kBoxFlags);
    }
    SetLastError(before);
}

}  // namespace vbr
