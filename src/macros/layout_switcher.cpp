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
    const std::vector<Lcid> installed = with_.Layouts.InstalledLanguages();
    return std::find(installed.begin(), installed.end(), language) != installed.end();
}

void LayoutSwitcher::SwitchKeyboardLayout(Lcid language, WindowHandle window) {
    const LayoutToggle toggle = GetLayoutToggle(with_.Layouts.ToggleSetting());
    LogToggle(toggle, with_.Log);
    const std::vector<KeyEvent> events = LayoutToggleEvents(toggle, with_.Input);
    const std::size_t layouts = with_.Layouts.InstalledLanguages().size();
    const std::size_t presses = layouts < kLayoutsToAskBack ? 1 : layouts;
    WaitForRelease(with_.Input, with_.Clock, with_.Log);
    for (std::size_t i = 0; i < presses; ++i) {
        if (!SendAll(events, with_.Input, with_.Log) || presses == 1) {
            return;
        }
        if (!with_.Targets.IsOwnProcess(window)) {
            with_.Clock.Sleep(kSwitchMs);
            with_.Targets.Wake(window);
        }
        const std::uint32_t thread = with_.Windows.ThreadOf(window).Thread;
        if (LanguageOf(with_.Windows.KeyboardLayout(thread)) == language) {
            return;
        }
    }
}

}  // namespace vbr
