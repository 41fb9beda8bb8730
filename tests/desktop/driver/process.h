// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <optional>
#include <string>

#include "platform/win32/handle.h"

namespace vbr::desktop {

// A program started by a test; it is ended with this object if it still runs then.
class Process {
  public:
    Process() = default;
    explicit Process(const std::wstring& commandLine);
    // Without an administrator's rights.
    static Process AsStandardUser(const std::wstring& commandLine);
    ~Process() { Terminate(); }
    Process(Process&&) = default;
    Process& operator=(Process&&) = default;

    bool IsRunning() const;
    // Whether it is a 32-bit program beside 64-bit ones.
    bool Is32Bit() const;

    // The exit code, or nothing when the process still runs after that time.
    std::optional<DWORD> WaitForExit(DWORD milliseconds) const;
    void Terminate();
    DWORD Id() const { return id_; }

  private:
    Process(const std::wstring& commandLine, HANDLE token);

    UniqueHandle handle_;
    DWORD id_ = 0;
};

}  // namespace vbr::desktop
