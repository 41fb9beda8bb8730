// SPDX-License-Identifier: MIT
#include "shell/hotkey_service.h"

#include "base/text.h"
#include "platform/object_names.h"
#include "settings/hotkey_text.h"

namespace vbr {
namespace {

constexpr std::uint16_t kVkEnter = 13;

}  // namespace

std::optional<std::u16string> HotkeyService::Install(const HookServiceStart& start,
                                                     bool libraryExists) {
    // Without them targets can't answer; where nobody asks them all else works.
    const bool canAnswer = CreateInterchangeObjects();
    if (!canAnswer && start.TargetsAnswer) {
        with_.Log.Write(u"ERROR: Cannot create wait objects");
        return Report(u"ERROR: Cannot create wait objects");
    }
    const auto error = RegisterHotkey();
    hotkeyTaken_ = error.has_value();
    if (error) {
        with_.Log.Write(u"ERROR: Cannot register hot key");
        CloseInterchangeObjects();
        const std::u16string message = Concat(u"ERROR: Cannot register hot key ", HotkeyName());
        with_.Log.Write(message);
        return Concat(u"\n\n", *error, u"\n", Report(message));
    }
    if (const auto code = with_.Hooks.InstallDLLService(start)) {
        const std::u16string message =
            Concat(u"ERROR: Cannot kernel DLL install",
                   libraryExists ? u"\nDLL path: " : u"\nDLL not found: ",
                   with_.Hooks.LibraryPath(), u"\n\n", DescribeHookError(*code));
        if (*code == kHookSuccess) {
            with_.Log.Write(message);
        } else {
            with_.Log.LogError(message);
        }
        UnregisterHotkey();
        CloseInterchangeObjects();
        return Report(message);
    }
    if (canAnswer && !with_.Waiter.Start(*dataNeeded_, *dataCompleted_)) {
        Stop();
        with_.Log.Write(u"ERROR: Cannot start wait thread for query");
        return Report(u"ERROR: Cannot start wait thread for query");
    }
    return std::nullopt;
}

void HotkeyService::Stop() {
    with_.Hooks.UninstallDLLService();
    UnregisterHotkey();
    with_.Waiter.Stop();
    CloseInterchangeObjects();
}

void HotkeyService::RestartWait() {
    if (dataNeeded_ && dataCompleted_) {
        with_.Waiter.Start(*dataNeeded_, *dataCompleted_);
    }
}

std::u16string HotkeyService::HotkeyName() const {
    return HotkeyText(with_.Settings.HotkeyMods, with_.Hotkeys.KeyName(with_.Settings.HotkeyVk));
}

bool HotkeyService::CreateInterchangeObjects() {
    area_ = with_.Memory.Create(kAreaInterchange, kAreaInterchangeSize);
    dataNeeded_ = with_.Objects.Create(kEventDataNeeded, EventReset::Manual, ObjectAccess::Default);
    dataCompleted_ =
        with_.Objects.Create(kEventDataCompleted, EventReset::Manual, ObjectAccess::Default);
    const std::pair<bool, std::u16string_view> had[] = {
        {area_ != nullptr, kAreaInterchange},
        {dataNeeded_ != nullptr, kEventDataNeeded},
        {dataCompleted_ != nullptr, kEventDataCompleted}};
    bool complete = true;
    for (const auto& [isHad, name] : had) {
        if (!isHad) {
            with_.Taken.Note(name);
            complete = false;
        }
    }
    if (!complete) {
        CloseInterchangeObjects();
    }
    return complete;
}

void HotkeyService::CloseInterchangeObjects() {
    area_.reset();
    dataNeeded_.reset();
    dataCompleted_.reset();
}

std::optional<std::u16string> HotkeyService::RegisterHotkey() {
    if (hotkeyRegistered_) {
        return std::nullopt;
    }
    CVBRSettings& settings = with_.Settings;
    if (settings.HotkeyVk == 0) {
        settings.HotkeyVk = kVkEnter;
        if (settings.HotkeyMods == 0) {
            settings.HotkeyMods = kModAlt | kModControl;
        }
    }
    if (const auto error = with_.Hotkeys.Register(settings.HotkeyMods, settings.HotkeyVk)) {
        return Report(Concat(u"Cannot register hotkey. Error: ", error->Code));
    }
    hotkeyRegistered_ = true;
    if (!shared_.WriteSharedSettings(settings.HotkeyVk, settings.HotkeyMods,
                                     settings.Hotkey_Doubled, u"")) {
        with_.Taken.Note(kAreaSettings);
    }
    return std::nullopt;
}

void HotkeyService::UnregisterHotkey() {
    if (hotkeyRegistered_ && with_.Hotkeys.Unregister()) {
        hotkeyRegistered_ = false;
    }
}

std::u16string HotkeyService::Report(std::u16string_view message) {
    return with_.Messages.emplace_back(message);
}

}  // namespace vbr
