// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <optional>
#include <string>
#include <string_view>

namespace vbr {

// A dialog made from a template of the resources and bound to an object, which outlives it.
class DialogBase {
  public:
    DialogBase() = default;
    virtual ~DialogBase();
    DialogBase(const DialogBase&) = delete;
    DialogBase& operator=(const DialogBase&) = delete;

    HWND Handle() const { return dialog_; }

  protected:
    // Runs the dialog until it ends; what EndDialog was given, -1 when it could not be made.
    INT_PTR RunModal(int dialogId, HWND owner);
    // Makes the dialog, hidden if its template says so.
    bool CreateModeless(int dialogId);

    // False when it has set the focus itself.
    virtual bool OnInitDialog() = 0;
    // Nothing leaves the message to the default.
    virtual std::optional<INT_PTR> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;

    HWND Control(int id) const { return GetDlgItem(dialog_, id); }
    std::u16string TextOf(int id) const;
    void SetText(int id, const std::u16string& text) const;
    bool IsChecked(int id) const { return IsDlgButtonChecked(dialog_, id) == BST_CHECKED; }
    void Check(int id, bool on) const;
    void Enable(int id, bool on) const { EnableWindow(Control(id), on); }

  private:
    static INT_PTR CALLBACK DialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

    HWND dialog_ = nullptr;
};

// The text of a window, whatever its length.
std::u16string WindowText(HWND window);

}  // namespace vbr
