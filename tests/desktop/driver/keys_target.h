// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace vbr::desktop {

// A window in front that obeys nothing but its keys and minds every modifier, as pages and office
// programs do. It has a thread of its own.
class KeysTarget {
  public:
    struct Manners {
        const wchar_t* ClassName = L"Page";
        bool IsTerminal = false;  // Ctrl+C interrupts what runs
        DWORD MsPerKey = 0;
        std::u16string Selected;
        std::function<void(KeysTarget&)> OnCharacter;  // after each
    };

    explicit KeysTarget(Manners manners);
    KeysTarget() : KeysTarget(Manners()) {}
    ~KeysTarget();
    KeysTarget(const KeysTarget&) = delete;
    KeysTarget& operator=(const KeysTarget&) = delete;

    bool BringToFront() const;
    HWND Window() const { return window_; }

    // What arrived by keys and by pastes.
    std::u16string Text() { return Read(text_); }
    std::size_t Length() {
        const std::lock_guard lock(mutex_);
        return text_.size();
    }
    // Waits until the text is exactly this, and returns what it is then.
    std::u16string WaitForText(const std::u16string& expected);
    int Interrupts() { return Read(interrupts_); }
    int CursorSteps() { return Read(cursorSteps_); }
    // Keys with modifiers that it has no command for, and a menu that a lone Alt has opened.
    std::vector<std::string> Oddities() { return Read(oddities_); }

  private:
    template <typename Value>
    Value Read(const Value& value) {
        const std::lock_guard lock(mutex_);
        return value;
    }
    void Run();
    void OnKey(WPARAM vk);
    void OnCharacter(char16_t unit);
    void Copy() const;
    void Paste();

    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    Manners manners_;
    HWND window_ = nullptr;
    std::mutex mutex_;
    std::u16string text_;
    int interrupts_ = 0;
    int cursorSteps_ = 0;
    std::vector<std::string> oddities_;
    std::thread thread_;
};

}  // namespace vbr::desktop
