// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <cstdint>
#include <string>

namespace vbr {

// The control that a phrase's text is edited in: formatted for a formatted phrase, else plain.
class PhraseTextBox {
  public:
    void Attach(HWND control);

    // The text or source of a phrase of that kind.
    void Load(std::int32_t kind, const std::u16string& text);
    // Since it was loaded; a source would come back in the control's own way.
    bool IsModified() const;
    void NoteSaved() { Send(EM_SETMODIFY, FALSE); }
    std::u16string Text(std::int32_t kind) const;
    // The text stays as it reads; formats go.
    void ChangeKind(std::int32_t kind);
    // One that can't be edited looks so.
    void Enable(bool on);
    // Turns a CFE_ effect on or off for what is selected.
    void ToggleEffect(DWORD effect);
    // In the place of what is selected.
    void Insert(const std::u16string& text);

  private:
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageW(control_, message, wParam, lParam);
    }
    void Clear(std::int32_t kind) const;

    HWND control_ = nullptr;
};

}  // namespace vbr
