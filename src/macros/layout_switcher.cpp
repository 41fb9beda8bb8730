// SPDX-License-Identifier: MIT
#include "macros/layout_switcher.h"

#include <algorithm>

#include "macros/key_events.h"

namespace vbr {
namespace {

constexpr std::size_t kLayoutsToAskBack = 3;
constexpr std::uint32_t kSwitchMs = 200;

void LogToggle(LayoutToggle toggle, Log& log) {
    if (toggle == LayoutToggle::GraveAccent) {
        log.Write(u"Warning: keyboard layout switch [VK_TILDA_YOU detected]");
    } else if (toggle != LayoutToggle::AltShift && toggle != LayoutToggle::CtrlShift) {
        log.LogError(u"Cannot detect keyboard layout switch method, Use: Alt+SHIFT");
    }
}

}  // namespace

LayoutToggle GetLayoutToggle(const LayoutToggleSetting& setting) {
    if (!setting.Readable) {
        return LayoutToggle::Unknown;
    }
    if (!setting.Hotkey) {
        return LayoutToggle::AltShift;
    }
    const char16_t first = setting.Hotkey->empty() ? u'\0' : setting.Hotkey->front();
    return first >= u'1' && first <= u'4' ? static_cast<LayoutToggle>(first - u'0')
                                          : LayoutToggle::Unknown;
}

std::vector<KeyEvent> LayoutToggleEvents(LayoutToggle toggle, const InputInjector& input) {
    const std::uint16_t second = toggle == LayoutToggle::GraveAccent ? kVkOem3 : kVkShift;
    const KeyEvent secondDown{.Vk = second, .Scan = input.ScanCode(second)};
    KeyEvent secondUp = secondDown;
    secondUp.Flags = kKeyUp;
    if (toggle == LayoutToggle::GraveAccent) {
        return {secondDown, secondUp};
    }
    const std::uint16_t first = toggle == LayoutToggle::CtrlShift ? kVkLeftControl : kVkLeftMenu;
    return {{.Vk = first}, secondDown, secondUp, {.Vk = first, .Flags = kKeyUp}};
}

bool LayoutSwitcher::IsInstalled(Lcid language) const {
    const std::vector<Lcid> installed = parts_.Layouts.InstalledLanguages();
    return std::find(installed.begin(), installed.end(), language) != installed.end();
}

void LayoutSwitcher::SwitchKeyboardLayout(Lcid language, WindowHandle window) {
    const LayoutToggle toggle = GetLayoutToggle(parts_.Layouts.ToggleSetting());
    LogToggle(toggle, parts_.SwitchLog);
    const std::vector<KeyEvent> events = LayoutToggleEvents(toggle, parts_.Input);
    const std::size_t layouts = parts_.Layouts.InstalledLanguages().size();
    const std::size_t presses = layouts < kLayoutsToAskBack ? 1 : layouts;
    WaitForRelease(parts_.Input, parts_.Time, parts_.SwitchLog);
    for (std::size_t i = 0; i < presses; ++i) {
        if (!SendAll(events, parts_.Input, parts_.SwitchLog) || presses == 1) {
            return;
        }
        if (!parts_.Targets.IsOwnProcess(window)) {
            parts_.Time.Sleep(kSwitchMs);
            parts_.Targets.Wake(window);
        }
        const std::uint32_t thread = parts_.Windows.ThreadOf(window).Thread;
        if (LanguageOf(parts_.Windows.KeyboardLayout(thread)) == language) {
            return;
        }
    }
}

}  // namespace vbr
