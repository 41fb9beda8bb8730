// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <string>

#include "desktop/driver/process.h"
#include "desktop/driver/waiting.h"
#include "platform/win32/handle.h"

namespace vbr::bench {

// Whether the window answers messages.
inline bool Answers(HWND window) {
    DWORD_PTR ignored = 0;
    return window && SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, desktop::kPatienceMs,
                                         &ignored) != 0;
}

// A program of one hidden window, with the hot key or the libraries that `arguments` ask for.
class BareProgram {
  public:
    explicit BareProgram(const std::wstring& arguments)
        : event_(L"Vellumbridge_Bench_Bare_" + std::to_wstring(++Count())),
          process_(L"\"" + Path() + L"\" " + event_ + L" " + arguments) {}

    // False when it could not do what it was asked for.
    bool WaitUntilReady() const {
        return desktop::WaitUntil([this] { return IsReady() || !process_.IsRunning(); }) &&
               process_.IsRunning();
    }

    DWORD Id() const { return process_.Id(); }
    HWND Window() const {
        for (HWND window = nullptr;
             (window = FindWindowExW(nullptr, window, L"Vellumbridge_Bare", nullptr)) != nullptr;) {
            DWORD owner = 0;
            GetWindowThreadProcessId(window, &owner);
            if (owner == Id()) {
                return window;
            }
        }
        return nullptr;
    }
    // A word of its command line that no other program has.
    const std::wstring& Mark() const { return event_; }

    // What it ends with when it is asked for something else than to stay; 0 when it doesn't end.
    static DWORD Run(const std::wstring& arguments) {
        const desktop::Process process(L"\"" + Path() + L"\" " + arguments);
        return process.WaitForExit(desktop::kPatienceMs).value_or(0);
    }

  private:
    static int& Count() {
        static int count = 0;
        return count;
    }
    // Beside the benchmarks.
    static std::wstring Path() {
        wchar_t path[MAX_PATH];
        GetModuleFileNameW(nullptr, path, MAX_PATH);
        const std::wstring own = path;
        return own.substr(0, own.rfind(L'\\') + 1) + L"vellumbridge_bare_program.exe";
    }
    bool IsReady() const {
        return UniqueHandle(OpenEventW(SYNCHRONIZE, FALSE, event_.c_str())) && Answers(Window());
    }

    std::wstring event_;
    desktop::Process process_;
};

}  // namespace vbr::bench
