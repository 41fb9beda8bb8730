// SPDX-License-Identifier: MIT
#include "editor/settings_form.h"

#include "resources/resource_ids.h"
#include "settings/hotkey_text.h"

namespace vbr {
namespace {

// Calls `visit` with each value of the form and the setting that it stands for.
template <typename Visitor>
void ForEachValue(const Visitor& visit) {
    using Form = SettingsForm;
    using Values = SettingsValues;
    visit(&Form::HotkeyVk, &Values::HotkeyVk);
    visit(&Form::HotkeyMods, &Values::HotkeyMods);
    visit(&Form::Doubled, &Values::Hotkey_Doubled);
    visit(&Form::PhrasesFolder, &Values::PhrasesDirectory);
    visit(&Form::Language, &Values::Language);
    visit(&Form::PasteMethod, &Values::TextPasteMethod);
    visit(&Form::Sounds, &Values::SoundOnEvents);
    visit(&Form::ToolTips, &Values::MenuToolTips);
    visit(&Form::BalloonOnHotkey, &Values::ShowTrayBallonOnHotkey);
    visit(&Form::KeepHistory, &Values::ClipboardHistory);
    visit(&Form::SaveHistory, &Values::SaveClipboardHistory);
    visit(&Form::HistoryInMenu, &Values::InsertCHIntoMenu);
    visit(&Form::HistoryMax, &Values::ClipboardHistoryMax);
    visit(&Form::RecentFirst, &Values::AddLastUsedMenuToBegin);
    visit(&Form::CheckForUpdates, &Values::AutoCheckForUpdates);
}

}  // namespace

SettingsForm FormOf(const CVBRSettings& settings) {
    SettingsForm form;
    ForEachValue([&](auto value, auto setting) { form.*value = settings.*setting; });
    return form;
}

std::optional<std::u16string> ProblemOf(const SettingsForm& form, const Strings& texts) {
    if (!IsUsableHotkey(form.HotkeyMods, form.HotkeyVk)) {
        return texts.LoadString(kStrHotKeyNeedsModifier);
    }
    if (form.HistoryMax < 1 || form.HistoryMax > kMostHistoryItems) {
        return texts.LoadString(kStrHistoryMaxOutside);
    }
    return std::nullopt;
}

bool SaveForm(const SettingsForm& form, const SettingsForm& shown, CVBRSettings& settings) {
    if (!settings.Load()) {
        return false;
    }
    ForEachValue([&](auto value, auto setting) {
        if (form.*value != shown.*value) {
            settings.*setting = form.*value;
        }
    });
    return settings.Save();
}

}  // namespace vbr
