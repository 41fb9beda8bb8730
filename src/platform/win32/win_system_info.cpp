// SPDX-License-Identifier: MIT
#include "platform/win32/win_system_info.h"

#include "platform/win32/windows.h"

#include <lmcons.h>
#include <vector>

#include "base/text.h"
#include "platform/win32/system_library.h"
#include "platform/win32/wide.h"
#include "platform/win32/win_geometry.h"

namespace vbr {
namespace {

std::u16string_view NameOf(ProgramFile file) {
    switch (file) {
        case ProgramFile::Main:
            return u"Vellumbridge.exe";
        case ProgramFile::Editor:
            return u"VellumbridgeEditor.exe";
        case ProgramFile::HookLibrary:
            return u"Vellumbridge.dll";
    }
    return {};
}

// The version that GetVersionEx would hide from a program without a matching manifest.
OSVERSIONINFOEXW TrueVersion() {
    OSVERSIONINFOEXW version{};
    version.dwOSVersionInfoSize = sizeof version;
    using RtlGetVersion = LONG(WINAPI*)(OSVERSIONINFOEXW*);
    const auto get = FunctionOf<RtlGetVersion>(GetModuleHandleW(L"ntdll.dll"), "RtlGetVersion");
    if (get) {
        get(&version);
    }
    return version;
}

std::u16string FamilyName(const OSVERSIONINFOEXW& version) {
    const bool server = version.wProductType != VER_NT_WORKSTATION;
    if (version.dwMajorVersion == 10) {
        constexpr DWORD kFirstWindows11 = 22000;
        if (server) {
            return u"Windows Server";
        }
        return version.dwBuildNumber >= kFirstWindows11 ? u"Windows 11" : u"Windows 10";
    }
    if (version.dwMajorVersion == 6) {
        constexpr std::u16string_view kNames[] = {u"Windows Vista", u"Windows 7", u"Windows 8",
                                                  u"Windows 8.1"};
        if (version.dwMinorVersion < 4) {
            return std::u16string(kNames[version.dwMinorVersion]);
        }
    }
    return Concat(u"Windows ", version.dwMajorVersion, u".", version.dwMinorVersion);
}

}  // namespace

std::u16string WinSystemInfo::UserName() const {
    wchar_t name[UNLEN + 1];
    DWORD length = UNLEN + 1;
    return GetUserNameW(name, &length) && length > 0 ? FromWide(name, length - 1)
                                                     : std::u16string();
}

std::optional<Point> WinSystemInfo::CursorPosition() const {
    POINT point;
    if (!GetCursorPos(&point)) {
        return std::nullopt;
    }
    return FromWin(point);
}

std::optional<std::u16string> WinSystemInfo::SystemDirectory() const {
    wchar_t path[MAX_PATH];
    const UINT length = GetSystemDirectoryW(path, MAX_PATH);
    if (length == 0 || length > MAX_PATH) {
        return std::nullopt;
    }
    return FromWide(path, length);
}

std::u16string WinSystemInfo::SystemDescription() const {
    const OSVERSIONINFOEXW version = TrueVersion();
    return Concat(FamilyName(version), u" 64x build ", version.dwBuildNumber, u" ",
                  std::u16string_view(FromWide(version.szCSDVersion)));
}

bool WinSystemInfo::Is64BitWindows() const {
    BOOL emulated = FALSE;
    return sizeof(void*) == 8 || (IsWow64Process(GetCurrentProcess(), &emulated) && emulated);
}

std::u16string WinSystemInfo::FileVersion(ProgramFile file) const {
    const std::u16string path = Concat(programFolder_, NameOf(file));
    const UniqueLibrary library = LoadSystemLibrary(L"version.dll");
    const auto sizeOf =
        FunctionOf<decltype(&GetFileVersionInfoSizeW)>(library.get(), "GetFileVersionInfoSizeW");
    const auto read =
        FunctionOf<decltype(&GetFileVersionInfoW)>(library.get(), "GetFileVersionInfoW");
    const auto query = FunctionOf<decltype(&VerQueryValueW)>(library.get(), "VerQueryValueW");
    if (!sizeOf || !read || !query) {
        return {};
    }
    const DWORD size = sizeOf(Wide(path), nullptr);
    std::vector<BYTE> block(size);
    VS_FIXEDFILEINFO* info = nullptr;
    UINT length = 0;
    if (size == 0 || !read(Wide(path), 0, size, block.data()) ||
        !query(block.data(), L"\\", reinterpret_cast<void**>(&info), &length)) {
        return {};
    }
    return Concat(HIWORD(info->dwFileVersionMS), u".", LOWORD(info->dwFileVersionMS), u".",
                  HIWORD(info->dwFileVersionLS), u".", LOWORD(info->dwFileVersionLS));
}

}  // namespace vbr
