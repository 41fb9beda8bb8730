// SPDX-License-Identifier: MIT
#include "desktop/driver/process.h"

#include <iostream>

#include "base/text.h"
#include "platform/win32/wide.h"

namespace vbr::desktop {

namespace {

// This process's token without the administrators.
UniqueHandle StandardToken() {
    HANDLE own = nullptr;
    OpenProcessToken(GetCurrentProcess(), TOKEN_ALL_ACCESS, &own);
    const UniqueHandle owned(own);
    BYTE sid[SECURITY_MAX_SID_SIZE];
    DWORD size = sizeof sid;
    CreateWellKnownSid(WinBuiltinAdministratorsSid, nullptr, sid, &size);
    SID_AND_ATTRIBUTES administrators{sid, 0};
    HANDLE standard = nullptr;
    CreateRestrictedToken(own, 0, 1, &administrators, 0, nullptr, 0, nullptr, &standard);
    return UniqueHandle(standard);
}

}  // namespace

Process::Process(const std::wstring& commandLine) : Process(commandLine, nullptr) {}

Process Process::AsStandardUser(const std::wstring& commandLine) {
    return Process(commandLine, StandardToken().get());
}

Process::Process(const std::wstring& commandLine, HANDLE token) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION info{};
    std::wstring writable = commandLine;
    if (CreateProcessAsUserW(token, nullptr, writable.data(), nullptr, nullptr, FALSE, 0, nullptr,
                             nullptr, &startup, &info)) {
        CloseHandle(info.hThread);
        handle_.reset(info.hProcess);
        id_ = info.dwProcessId;
    } else {
        const DWORD error = GetLastError();
        std::cout << "Cannot start " << Utf16ToUtf8(FromWide(commandLine.c_str())) << ": error "
                  << error << '\n';
    }
}

bool Process::IsRunning() const {
    return handle_ && !WaitForExit(0);
}

bool Process::Is32Bit() const {
    BOOL is32Bit = FALSE;
    return IsWow64Process(handle_.get(), &is32Bit) && is32Bit;
}

std::optional<DWORD> Process::WaitForExit(DWORD milliseconds) const {
    DWORD code = 0;
    if (!handle_ || WaitForSingleObject(handle_.get(), milliseconds) != WAIT_OBJECT_0 ||
        !GetExitCodeProcess(handle_.get(), &code)) {
        return std::nullopt;
    }
    return code;
}

void Process::Terminate() {
    if (IsRunning()) {
        TerminateProcess(handle_.get(), 1);
        WaitForSingleObject(handle_.get(), INFINITE);
    }
}

}  // namespace vbr::desktop
