// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include "platform/strings.h"
#include "platform/win32/dialog_base.h"
#include "platform/win32/gdi_handle.h"
#include "welcome/welcome_guide.h"

namespace vbr {

// Greets, tells the hot key, and has a box to try it in.
class WelcomeWindow : public DialogBase {
  public:
    struct Collaborators {
        const Strings& Texts;
        std::function<std::u16string()> Keys;  // the hot key, which may change meanwhile
        std::function<WelcomeFacts()> Facts;   // all but the box
        std::function<void()> StartProgram;
        std::function<void()> StartEditor;
    };

    explicit WelcomeWindow(Collaborators with) : with_(std::move(with)) {}

    // Until the user closes it.
    void Run() { RunModal(kDialog, nullptr); }

  protected:
    bool OnInitDialog() override;
    std::optional<INT_PTR> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    static const int kDialog;

    void MakeFonts();
    void Update();

    Collaborators with_;
    WelcomeState state_;
    std::u16string keys_;
    UniqueGdi<HFONT> big_;
    UniqueGdi<HFONT> bold_;
};

}  // namespace vbr
