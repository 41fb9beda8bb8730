// SPDX-License-Identifier: MIT
#include "platform/win32/win_process_starter.h"

#include "platform/win32/windows.h"

#include <objbase.h>
#include <shellapi.h>

#include "base/text.h"
#include "platform/win32/handle.h"
#include "platform/win32/wide.h"
#include "platform/win32/win_named_objects.h"
#include "platform/win32/win_system_error.h"

namespace vbr {
namespace {

class WinStartedProcess : public StartedProcess {
  public:
    explicit WinStartedProcess(UniqueHandle process) : process_(std::move(process)) {}

    bool WaitForEnd(NamedEvent& stop) override {
        const HANDLE handles[] = {static_cast<WinNamedEvent&>(stop).Get(), process_.get()};
        return WaitForMultipleObjects(2, handles, FALSE, INFINITE) == WAIT_OBJECT_0 + 1;
    }

  private:
    UniqueHandle process_;
};

// The shell wants it on a thread that starts something.
class ComApartment {
  public:
    ComApartment() : joined_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
    ~ComApartment() {
        const DWORD error = GetLastError();
        if (joined_) {
            CoUninitialize();
        }
        SetLastError(error);
    }
    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;

  private:
    bool joined_;
};

UniqueHandle StartDirectly(const std::u16string& path, std::u16string_view arguments) {
    std::u16string commandLine = Concat(u"\"", path, u"\"", arguments);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION made{};
    if (!CreateProcessW(Wide(path), Wide(commandLine.data()), nullptr, nullptr, FALSE, 0, nullptr,
                        nullptr, &startup, &made)) {
        return nullptr;
    }
    const UniqueHandle thread(made.hThread);
    return UniqueHandle(made.hProcess);
}

UniqueHandle StartByShell(const std::u16string& path, std::u16string_view arguments,
                          const wchar_t* verb) {
    const ComApartment apartment;
    const std::u16string parameters(arguments);
    SHELLEXECUTEINFOW info{};
    info.cbSize = sizeof info;
    // The thread ends soon, and what goes wrong is told by the program itself.
    info.fMask = SEE_MASK_NOCLOSEPROCESS | SEE_MASK_NOASYNC | SEE_MASK_FLAG_NO_UI;
    info.lpVerb = verb;
    info.lpFile = Wide(path);
    info.lpParameters = Wide(parameters);
    info.nShow = SW_MAXIMIZE;
    return UniqueHandle(ShellExecuteExW(&info) ? info.hProcess : nullptr);
}

}  // namespace

ProcessStart WinProcessStarter::Start(StartWay way, std::u16string_view path,
                                      std::u16string_view arguments) {
    const std::u16string file(path);
    UniqueHandle process =
        way == StartWay::Direct
            ? StartDirectly(file, arguments)
            : StartByShell(file, arguments, way == StartWay::Elevated ? L"runas" : L"open");
    if (!process) {
        return {.Process = nullptr, .Error = SystemErrorOf(GetLastError())};
    }
    return {.Process = std::make_unique<WinStartedProcess>(std::move(process)), .Error = {}};
}

}  // namespace vbr
