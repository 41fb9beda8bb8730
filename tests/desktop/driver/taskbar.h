// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "desktop/driver/waiting.h"

namespace vbr::desktop {

// What a program tells the shell of its icon. Texts are there as far as the flags say.
struct IconNotice {
    DWORD Message = 0;  // NIM_ADD and the like
    HWND Window = nullptr;
    UINT Flags = 0;
    UINT CallbackMessage = 0;
    std::u16string Tip;
    std::u16string Balloon;
    std::u16string BalloonTitle;
};

// Stands in the shell's place as long as it lives and hears of every icon, as Wine's programs tell
// it. One at a time.
class Taskbar {
  public:
    // The first icons that it is given are refused, so many of them.
    explicit Taskbar(int refusals = 0);
    ~Taskbar();
    Taskbar(const Taskbar&) = delete;
    Taskbar& operator=(const Taskbar&) = delete;

    std::vector<IconNotice> Notices() const;

    // Waits for a notice for which the condition holds, from a place on. Without a window when none
    // came.
    template <typename Condition>
    IconNotice WaitFor(Condition&& holds, std::size_t from = 0) const {
        IconNotice found;
        WaitUntil([&] {
            for (const std::vector<IconNotice> notices = Notices();
                 from < notices.size() && !found.Window; ++from) {
                found = holds(notices[from]) ? notices[from] : IconNotice();
            }
            return found.Window != nullptr;
        });
        return found;
    }

  private:
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    bool Hear(const COPYDATASTRUCT& data);
    void Run(HANDLE ready);

    mutable std::mutex mutex_;
    int refusals_;
    std::vector<IconNotice> notices_;
    std::thread thread_;
    DWORD threadId_ = 0;
};

}  // namespace vbr::desktop
