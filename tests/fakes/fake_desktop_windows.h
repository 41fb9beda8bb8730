// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "base/text.h"
#include "fakes/journal.h"
#include "platform/desktop_windows.h"

namespace vbr {

// Window n belongs to thread n + 1 and process n + 2; each fact tells what it was asked about.
class FakeDesktopWindows : public DesktopWindows {
  public:
    explicit FakeDesktopWindows(Journal& calls) : calls_(calls) {}

    bool Posts = true;
    bool OwnBitness = true;
    std::u16string Class = u"Page";  // of every window
    std::optional<bool> Selected;    // in an edit control
    std::function<void()> OnCopy = [] {};

    bool IsWindow(WindowHandle window) const override { return window != 0; }
    WindowThread ThreadOf(WindowHandle window) const override {
        return {static_cast<std::uint32_t>(window + 1), static_cast<std::uint32_t>(window + 2)};
    }
    std::u16string ProgramPath(std::uint32_t process) const override {
        return Concat(u"program ", process);
    }
    std::optional<std::uint32_t> BinaryType(const std::u16string&) const override { return 6; }
    bool HasOwnBitness(std::uint32_t) const override { return OwnBitness; }
    std::u16string ClassName(WindowHandle) const override { return Class; }
    WindowHandle RootOf(WindowHandle window) const override { return window; }
    std::optional<bool> HasSelection(WindowHandle) const override { return Selected; }
    LayoutHandle KeyboardLayout(std::uint32_t thread) const override { return 1000 + thread; }
    GuiThreadWindows OwnGuiThread() const override { return {.Active = 5}; }
    bool Post(WindowHandle window, std::uint32_t message, std::uintptr_t wParam) override {
        calls_.push_back("post " + std::to_string(message) + " with " + std::to_string(wParam) +
                         " to " + std::to_string(window));
        return Posts;
    }
    void SendCopy(WindowHandle window, std::uint32_t) override {
        calls_.push_back("copy message to " + std::to_string(window));
        OnCopy();
    }

  private:
    Journal& calls_;
};

}  // namespace vbr
