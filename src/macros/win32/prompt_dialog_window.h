// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <string>
#include <utility>

#include "macros/prompt_dialog.h"
#include "platform/strings.h"

namespace vbr {

// The dialog that asks for a piece of text, at the caret of the window that the text is for.
class CVBRPromptDlg {
  public:
    CVBRPromptDlg(HWND target, std::u16string text, const Strings& texts)
        : target_(target), text_(std::move(text)), texts_(texts) {}

    // Runs the dialog; true for OK.
    bool DoModal();

    // The default answer before the dialog ran, the answer afterwards.
    const std::u16string& Text() const { return text_; }

  private:
    static INT_PTR CALLBACK DialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR OnMessage(UINT message, WPARAM wParam);
    INT_PTR OnCommand(WORD command);
    void OnInitDialog();
    void OnOk();
    // Where it belongs, at its present size, unless the user has moved it.
    void Place() const;
    void TakeForeground() const;

    HWND target_;
    std::u16string text_;
    const Strings& texts_;
    HWND dialog_ = nullptr;
    HWND answer_ = nullptr;
    PromptSurroundings around_;  // before the dialog took the caret away
    bool isMoved_ = false;       // by the user
};

// Asks by the dialog and gives the keyboard back afterwards.
class WinPrompter : public Prompter {
  public:
    explicit WinPrompter(const Strings& texts) : texts_(texts) {}

    bool ShowPromptDialog(WindowHandle window, std::u16string& inOutText) override;

  private:
    const Strings& texts_;
};

}  // namespace vbr
