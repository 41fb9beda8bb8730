// SPDX-License-Identifier: MIT
#include "windows/process_figures.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <psapi.h>
#include <sstream>
#include <tlhelp32.h>

#include "base/text.h"
#include "platform/win32/handle.h"
#include "platform/win32/wide.h"

namespace vbr::bench {
namespace {

bool IsWine() {
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

std::string FileText(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// Wine's counters leave out most of what a process has; those of the system below are true. Other
// prefixes may run the same programs.
std::optional<std::filesystem::path> UnixFolder(const std::string& mark) {
    const char* prefix = std::getenv("WINEPREFIX");
    const std::string variable = std::string("WINEPREFIX=") + (prefix ? prefix : "") + '\0';
    std::optional<std::filesystem::path> found;
    for (const auto& entry : std::filesystem::directory_iterator(L"Z:\\proc")) {
        if (FileText(entry.path() / "cmdline").find(mark) != std::string::npos &&
            FileText(entry.path() / "environ").find(variable) != std::string::npos) {
            if (found) {
                return std::nullopt;
            }
            found = entry.path();
        }
    }
    return found;
}

std::optional<double> PrivateDirtyMemory(const std::filesystem::path& folder) {
    std::istringstream lines(FileText(folder / "smaps_rollup"));
    for (std::string word; lines >> word;) {
        double kilobytes = 0;
        if (word == "Private_Dirty:" && lines >> kilobytes) {
            return kilobytes * 1024;
        }
    }
    return std::nullopt;
}

}  // namespace

int CountThreads(DWORD process) {
    const UniqueHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0));
    int count = 0;
    THREADENTRY32 thread{};
    thread.dwSize = sizeof thread;
    for (BOOL more = Thread32First(snapshot.get(), &thread); more;
         more = Thread32Next(snapshot.get(), &thread)) {
        count += thread.th32OwnerProcessID == process;
    }
    return count;
}

std::vector<std::wstring> SystemLibraries(DWORD process) {
    wchar_t windows[MAX_PATH];
    GetWindowsDirectoryW(windows, MAX_PATH);
    const UniqueHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, process));
    std::vector<std::wstring> paths;
    MODULEENTRY32W module{};
    module.dwSize = sizeof module;
    for (BOOL more = Module32FirstW(snapshot.get(), &module); more;
         more = Module32NextW(snapshot.get(), &module)) {
        if (StartsWithNoCase(FromWide(module.szExePath), FromWide(windows))) {
            paths.emplace_back(module.szExePath);
        }
    }
    return paths;
}

std::optional<double> PrivateMemory(DWORD process, const std::wstring& mark) {
    if (IsWine()) {
        const auto folder = UnixFolder(Utf16ToUtf8(FromWide(mark.c_str())));
        return folder ? PrivateDirtyMemory(*folder) : std::nullopt;
    }
    const UniqueHandle handle(
        OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, process));
    PROCESS_MEMORY_COUNTERS_EX counters{};
    if (!GetProcessMemoryInfo(handle.get(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters),
                              sizeof counters)) {
        return std::nullopt;
    }
    return static_cast<double>(counters.PrivateUsage);
}

}  // namespace vbr::bench
