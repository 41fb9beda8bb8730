// SPDX-License-Identifier: MIT
#include "editor/win32/settings_dialog.h"

#include <algorithm>
#include <commctrl.h>
#include <shlobj.h>

#include "base/text.h"
#include "platform/win32/wide.h"
#include "resources/resource_ids.h"
#include "settings/phrases_folder.h"

namespace vbr {
namespace {

constexpr std::pair<int, int> kLabels[] = {
    {kCtlSettingsHotKeyLabel, kStrSettingsHotKey},
    {kCtlSettingsWinKey, kStrSettingsWinKey},
    {kCtlSettingsDoubled, kStrSettingsDoubled},
    {kCtlSettingsPhrasesLabel, kStrSettingsPhrases},
    {kCtlSettingsBrowse, kStrSettingsBrowse},
    {kCtlSettingsLanguageLabel, kStrSettingsLanguage},
    {kCtlSettingsPasteLabel, kStrSettingsPaste},
    {kCtlSettingsSounds, kStrSettingsSounds},
    {kCtlSettingsToolTips, kStrSettingsToolTips},
    {kCtlSettingsBalloon, kStrSettingsBalloon},
    {kCtlSettingsRecent, kStrSettingsRecent},
    {kCtlSettingsUpdates, kStrSettingsUpdates},
    {kCtlSettingsHistoryFrame, kStrClipboardHistory},
    {kCtlSettingsKeepHistory, kStrSettingsKeepHistory},
    {kCtlSettingsHistoryInMenu, kStrSettingsHistoryInMenu},
    {kCtlSettingsSaveHistory, kStrSettingsSaveHistory},
    {kCtlSettingsHistoryMaxLabel, kStrSettingsHistoryMax},
    {IDCANCEL, kStrCancel},
};

struct CheckRow {
    int Control;
    bool SettingsForm::*Value;
};

constexpr CheckRow kChecks[] = {
    {kCtlSettingsDoubled, &SettingsForm::Doubled},
    {kCtlSettingsSounds, &SettingsForm::Sounds},
    {kCtlSettingsToolTips, &SettingsForm::ToolTips},
    {kCtlSettingsBalloon, &SettingsForm::BalloonOnHotkey},
    {kCtlSettingsRecent, &SettingsForm::RecentFirst},
    {kCtlSettingsUpdates, &SettingsForm::CheckForUpdates},
    {kCtlSettingsKeepHistory, &SettingsForm::KeepHistory},
    {kCtlSettingsHistoryInMenu, &SettingsForm::HistoryInMenu},
    {kCtlSettingsSaveHistory, &SettingsForm::SaveHistory},
};

// The hot key control has bits of its own, and none for the Windows key.
constexpr std::pair<std::uint16_t, WORD> kModifiers[] = {
    {kModAlt, HOTKEYF_ALT}, {kModControl, HOTKEYF_CONTROL}, {kModShift, HOTKEYF_SHIFT}};

// Keys that a keyboard has twice; without the mark the control names those of the number pad.
bool IsExtended(std::uint16_t vk) {
    return (vk >= VK_PRIOR && vk <= VK_DOWN) || vk == VK_INSERT || vk == VK_DELETE;
}

}  // namespace

bool SettingsDialog::Run(HWND owner) {
    return RunModal(kDialogEditorSettings, owner) == IDOK;
}

bool SettingsDialog::OnInitDialog() {
    SetTexts();
    FillLists();
    settings_.Load();
    shown_ = FormOf(settings_);
    ShowForm();
    return true;
}

void SettingsDialog::SetTexts() {
    SetWindowTextW(Handle(), Wide(texts_.LoadString(kStrSettingsTitle)));
    for (const auto& [control, text] : kLabels) {
        SetText(control, texts_.LoadString(text));
    }
}

void SettingsDialog::FillLists() {
    const auto add = [this](int list, const std::u16string& text) {
        SendMessageW(Control(list), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(text)));
    };
    for (const int text :
         {kStrSettingsPasteKeys, kStrSettingsPasteClipboard, kStrSettingsPasteLong}) {
        add(kCtlSettingsPaste, texts_.LoadString(text));
    }
    languages_.insert(languages_.begin(), u"");
    for (const std::u16string& language : languages_) {
        add(kCtlSettingsLanguage,
            language.empty() ? u"English" : language.substr(0, language.rfind(u'.')));
    }
    SendMessageW(Control(kCtlSettingsHistoryMax), EM_LIMITTEXT, 5, 0);
}

void SettingsDialog::ShowForm() {
    WORD modifiers = IsExtended(shown_.HotkeyVk) ? HOTKEYF_EXT : 0;
    for (const auto& [bit, mark] : kModifiers) {
        modifiers = static_cast<WORD>(modifiers | ((shown_.HotkeyMods & bit) ? mark : 0));
    }
    SendMessageW(Control(kCtlSettingsHotKey), HKM_SETHOTKEY,
                 MAKEWORD(static_cast<BYTE>(shown_.HotkeyVk), static_cast<BYTE>(modifiers)), 0);
    Check(kCtlSettingsWinKey, (shown_.HotkeyMods & kModWin) != 0);
    for (const CheckRow& row : kChecks) {
        Check(row.Control, shown_.*row.Value);
    }
    SetText(kCtlSettingsPhrases, shown_.PhrasesFolder.empty()
                                     ? DefaultPhrasesFolder(settings_.Files().ProgramFolder)
                                     : shown_.PhrasesFolder);
    const auto language = std::find_if(
        languages_.begin(), languages_.end(),
        [this](const std::u16string& name) { return EqualsNoCase(name, shown_.Language); });
    SendMessageW(
        Control(kCtlSettingsLanguage), CB_SETCURSEL,
        static_cast<WPARAM>(language == languages_.end() ? 0 : language - languages_.begin()), 0);
    SendMessageW(Control(kCtlSettingsPaste), CB_SETCURSEL, static_cast<WPARAM>(shown_.PasteMethod),
                 0);
    SetDlgItemInt(Handle(), kCtlSettingsHistoryMax, shown_.HistoryMax, FALSE);
    EnableControls();
}

void SettingsDialog::EnableControls() {
    const bool keeps = IsChecked(kCtlSettingsKeepHistory);
    for (const int id : {kCtlSettingsHistoryInMenu, kCtlSettingsSaveHistory, kCtlSettingsHistoryMax,
                         kCtlSettingsHistoryMaxLabel}) {
        Enable(id, keeps);
    }
}

SettingsForm SettingsDialog::ReadForm() const {
    SettingsForm form = shown_;
    const auto key =
        static_cast<WORD>(SendMessageW(Control(kCtlSettingsHotKey), HKM_GETHOTKEY, 0, 0));
    form.HotkeyVk = LOBYTE(key);
    form.HotkeyMods = IsChecked(kCtlSettingsWinKey) ? kModWin : std::uint16_t{0};
    for (const auto& [bit, mark] : kModifiers) {
        form.HotkeyMods =
            static_cast<std::uint16_t>(form.HotkeyMods | ((HIBYTE(key) & mark) ? bit : 0));
    }
    for (const CheckRow& row : kChecks) {
        form.*row.Value = IsChecked(row.Control);
    }
    const std::u16string folder(Trim(TextOf(kCtlSettingsPhrases), u" \""));
    form.PhrasesFolder = StoredPhrasesFolder(folder, settings_.Files().ProgramFolder);
    const auto language = SendMessageW(Control(kCtlSettingsLanguage), CB_GETCURSEL, 0, 0);
    if (language > 0 || shown_.Language.empty() ||
        std::find(languages_.begin(), languages_.end(), shown_.Language) != languages_.end()) {
        form.Language = languages_[static_cast<std::size_t>(std::max<LRESULT>(language, 0))];
    }
    form.PasteMethod = static_cast<std::int32_t>(
        std::max<LRESULT>(SendMessageW(Control(kCtlSettingsPaste), CB_GETCURSEL, 0, 0), 0));
    form.HistoryMax = GetDlgItemInt(Handle(), kCtlSettingsHistoryMax, nullptr, FALSE);
    return form;
}

std::optional<INT_PTR> SettingsDialog::OnMessage(UINT message, WPARAM wParam, LPARAM) {
    if (message != WM_COMMAND) {
        return std::nullopt;
    }
    switch (LOWORD(wParam)) {
        case IDOK:
            OnOk();
            break;
        case IDCANCEL:
            EndDialog(Handle(), IDCANCEL);
            break;
        case kCtlSettingsBrowse:
            Browse();
            break;
        case kCtlSettingsKeepHistory:
            EnableControls();
            break;
        default:
            break;
    }
    return TRUE;
}

void SettingsDialog::OnOk() {
    const SettingsForm form = ReadForm();
    std::optional<std::u16string> problem = ProblemOf(form, texts_);
    if (!problem && !SaveForm(form, shown_, settings_)) {
        problem = texts_.LoadString(kStrEditorSettingsNotSaved);
    }
    if (problem) {
        MessageBoxW(Handle(), Wide(*problem), Wide(texts_.LoadString(kStrProductName)),
                    MB_ICONWARNING);
        return;
    }
    EndDialog(Handle(), IDOK);
}

void SettingsDialog::Browse() {
    BROWSEINFOW info{};
    info.hwndOwner = Handle();
    const std::u16string title = texts_.LoadString(kStrPhrasesFolder);
    info.lpszTitle = Wide(title);
    info.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE;
    const LPITEMIDLIST chosen = SHBrowseForFolderW(&info);
    wchar_t path[MAX_PATH];
    if (chosen && SHGetPathFromIDListW(chosen, path)) {
        SetDlgItemTextW(Handle(), kCtlSettingsPhrases, path);
    }
    CoTaskMemFree(chosen);
}

}  // namespace vbr
