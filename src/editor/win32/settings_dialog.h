// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "editor/settings_form.h"
#include "platform/strings.h"
#include "platform/win32/dialog_base.h"

namespace vbr {

// The main settings. They are saved when the user says OK and they can be taken.
class SettingsDialog : public DialogBase {
  public:
    // `languages` are the names of the language files.
    SettingsDialog(CVBRSettings& settings, std::vector<std::u16string> languages,
                   const Strings& texts)
        : settings_(settings), languages_(std::move(languages)), texts_(texts) {}

    // True when they were saved.
    bool Run(HWND owner);

  protected:
    bool OnInitDialog() override;
    std::optional<INT_PTR> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void SetTexts();
    void FillLists();
    void ShowForm();
    SettingsForm ReadForm() const;
    void OnOk();
    void Browse();
    void EnableControls();

    CVBRSettings& settings_;
    std::vector<std::u16string> languages_;
    const Strings& texts_;
    SettingsForm shown_;
};

}  // namespace vbr
