// SPDX-License-Identifier: MIT
#include "platform/win32/dialog_base.h"

#include "platform/win32/wide.h"

namespace vbr {

DialogBase::~DialogBase() {
    if (dialog_) {
        DestroyWindow(dialog_);
    }
}

INT_PTR DialogBase::RunModal(int dialogId, HWND owner) {
    return DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(dialogId), owner, DialogProc,
                           reinterpret_cast<LPARAM>(this));
}

bool DialogBase::CreateModeless(int dialogId) {
    return CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(dialogId), nullptr,
                              DialogProc, reinterpret_cast<LPARAM>(this)) != nullptr;
}

INT_PTR CALLBACK DialogBase::DialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    // The system tells it once; anybody may tell it again.
    if (message == WM_INITDIALOG && GetWindowLongPtrW(dialog, DWLP_USER) == 0) {
        SetWindowLongPtrW(dialog, DWLP_USER, lParam);
        auto* made = reinterpret_cast<DialogBase*>(lParam);
        made->dialog_ = dialog;
        return made->OnInitDialog();
    }
    auto* self = reinterpret_cast<DialogBase*>(GetWindowLongPtrW(dialog, DWLP_USER));
    if (!self) {
        return FALSE;
    }
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(dialog, DWLP_USER, 0);
        self->dialog_ = nullptr;
        return FALSE;
    }
    return self->OnMessage(message, wParam, lParam).value_or(FALSE);
}

std::u16string DialogBase::TextOf(int id) const {
    return WindowText(Control(id));
}

void DialogBase::SetText(int id, const std::u16string& text) const {
    SetWindowTextW(Control(id), Wide(text));
}

void DialogBase::Check(int id, bool on) const {
    CheckDlgButton(dialog_, id, on ? BST_CHECKED : BST_UNCHECKED);
}

std::u16string WindowText(HWND window) {
    const int length = GetWindowTextLengthW(window);
    std::u16string text(static_cast<std::size_t>(length) + 1, u'\0');
    text.resize(static_cast<std::size_t>(
        GetWindowTextW(window, Wide(text.data()), static_cast<int>(text.size()))));
    return text;
}

}  // namespace vbr
