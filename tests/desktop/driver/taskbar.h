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

    // How many notices the condition holds for, of those from a place on.
    template <typename Condition>
    int Count(Condition&& holds, std::size_t from = 0) const {
        const std::vector<IconNotice> notices = Notices();
        int count = 0;
        for (std::size_t i = from; i < notices.size(); ++i) {
            count += holds(notices[i]) ? 1 : 0;
        }
        return count;
    }

    // Waits for such a notice from a place on.
    template <typename Condition>
    bool WaitFor(Condition&& holds, std::size_t from = 0) const {
        return WaitUntil([&] { return Count(holds, from) > 0; });
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
