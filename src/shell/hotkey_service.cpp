// SPDX-License-Identifier: MIT
#include "shell/hotkey_service.h"

#include "base/text.h"
#include "platform/object_names.h"

namespace vbr {
namespace {

constexpr std::uint16_t kVkEnter = 13;

}  // namespace

std::u16string HotkeyText(std::uint16_t mods, std::u16string_view keyName) {
    struct Modifier {
        std::uint16_t Bit;
        std::u16string_view Name;
    };
    constexpr Modifier kModifiers[] = {
        {kModControl, u"Ctrl+"}, {kModAlt, u"Alt+"}, {kModShift, u"Shift+"}, {kModWin, u"Win+"}};
    std::u16string text;
    for (const Modifier& modifier : kModifiers) {
        if (mods & modifier.Bit) {
            text += modifier.Name;
        }
    }
    return text.append(keyName);
}

bool HotkeyService::Install(const HookServiceStart& start, bool libraryExists,
                            std::u16string& errorText) {
    if (!CreateInterchangeObjects()) {
        parts_.ServiceLog.Write(u"ERROR: Cannot create wait objects");
        Report(u"ERROR: Cannot create wait objects", errorText);
        return false;
    }
    if (!RegisterHotkey(errorText)) {
        parts_.ServiceLog.Write(u"ERROR: Cannot register hot key");
        CloseInterchangeObjects();
        const std::u16string message = Concat(u"ERROR: Cannot register hot key ", HotkeyName());
        parts_.ServiceLog.Write(message);
        Report(message, errorText);
        return false;
    }
    std::uint32_t code = kHookSuccess;
    if (!parts_.Hooks.InstallDLLService(start, code)) {
        const std::u16string message =
            Concat(u"ERROR: Cannot kernel DLL install",
                   libraryExists ? u"\nDLL path: " : u"\nDLL not found: ",
                   parts_.Hooks.LibraryPath(), u"\n\n", DescribeHookError(code));
        if (code == kHookSuccess) {
            parts_.ServiceLog.Write(message);
        } else {
            parts_.ServiceLog.LogError(message);
        }
        UnregisterHotkey();
        CloseInterchangeObjects();
        Report(message, errorText);
        return false;
    }
    if (!parts_.Waiter.Start(*dataNeeded_, *dataCompleted_)) {
        Stop();
        parts_.ServiceLog.Write(u"ERROR: Cannot start wait thread for query");
        Report(u"ERROR: Cannot start wait thread for query", errorText);
        return false;
    }
    return true;
}

void HotkeyService::Stop() {
    parts_.Hooks.UninstallDLLService();
    UnregisterHotkey();
    parts_.Waiter.Stop();
    CloseInterchangeObjects();
}

void HotkeyService::RestartWait() {
    if (dataNeeded_ && dataCompleted_) {
        parts_.Waiter.Start(*dataNeeded_, *dataCompleted_);
    }
}

std::u16string HotkeyService::HotkeyName() const {
    return HotkeyText(parts_.Settings.HotkeyMods, parts_.Hotkeys.KeyName(parts_.Settings.HotkeyVk));
}

bool HotkeyService::CreateInterchangeObjects() {
    area_ = parts_.Memory.Create(kAreaInterchange, kAreaInterchangeSize);
    dataNeeded_ =
        parts_.Objects.Create(kEventDataNeeded, EventReset::Manual, ObjectAccess::Default);
    dataCompleted_ =
        parts_.Objects.Create(kEventDataCompleted, EventReset::Manual, ObjectAccess::Default);
    if (area_ && dataNeeded_ && dataCompleted_) {
        return true;
    }
    CloseInterchangeObjects();
    return false;
}

void HotkeyService::CloseInterchangeObjects() {
    area_.reset();
    dataNeeded_.reset();
    dataCompleted_.reset();
}

bool HotkeyService::RegisterHotkey(std::u16string& errorText) {
    if (hotkeyRegistered_) {
        return true;
    }
    CVBRSettings& settings = parts_.Settings;
    if (settings.HotkeyVk == 0) {
        settings.HotkeyVk = kVkEnter;
        if (settings.HotkeyMods == 0) {
            settings.HotkeyMods = kModAlt | kModControl;
        }
    }
    const std::uint32_t error = parts_.Hotkeys.Register(settings.HotkeyMods, settings.HotkeyVk);
    hotkeyRegistered_ = error == 0;
    if (hotkeyRegistered_) {
        shared_.WriteSharedSettings(settings.HotkeyVk, settings.HotkeyMods, settings.Hotkey_Doubled,
                                    u"");
    } else {
        const std::u16string message = Concat(u"Cannot register hotkey. Error: ", error);
        errorText += Concat(u"\n\n", message);
        parts_.Messages.push_back(message);
    }
    return hotkeyRegistered_;
}

void HotkeyService::UnregisterHotkey() {
    if (hotkeyRegistered_ && parts_.Hotkeys.Unregister()) {
        hotkeyRegistered_ = false;
    }
}

void HotkeyService::Report(const std::u16string& message, std::u16string& errorText) {
    parts_.Messages.push_back(message);
    errorText += errorText.empty() ? u"" : u"\n";
    errorText += message;
}

}  // namespace vbr
