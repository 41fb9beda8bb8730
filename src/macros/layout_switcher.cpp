// SPDX-License-Identifier: MIT
#include "macros/layout_switcher.h"

#include <algorithm>

#include "platform/key_sending.h"

namespace vbr {
namespace {

constexpr std::size_t kLayoutsToAskBack = 3;
constexpr std::uint32_t kSwitchMs = 200;
constexpr std::uint32_t kStepMs = 10;
constexpr std::uint32_t kReleaseMs = 300;

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
    const KeyEvent down = KeyOf(second, 0, input);
    const KeyEvent up = KeyOf(second, kKeyUp, input);
    if (toggle == LayoutToggle::GraveAccent) {
        return {down, up};
    }
    const std::uint16_t first = toggle == LayoutToggle::CtrlShift ? kVkLeftControl : kVkLeftMenu;
    return {KeyOf(first, 0, input), down, up, KeyOf(first, kKeyUp, input)};
}

bool LayoutSwitcher::IsInstalled(Lcid language) const {
    const std::vector<Lcid> installed = with_.Layouts.InstalledLanguages();
    return std::find(installed.begin(), installed.end(), language) != installed.end();
}

void LayoutSwitcher::SwitchKeyboardLayout(Lcid language, WindowHandle window) {
    with_.Keys.Use(window, kSwitchMs, [&](TargetKeys& keys) {
        const InputState state = keys.AwaitReady();
        if (state != InputState::Read && state != InputState::Sent) {
            return state;
        }
        AwaitRelease(kReleaseMs, 0, with_.Input, with_.Clock, with_.Log);
        return Press(keys, language, window);
    });
}

InputState LayoutSwitcher::Press(TargetKeys& keys, Lcid language, WindowHandle window) {
    const LayoutToggle toggle = GetLayoutToggle(with_.Layouts.ToggleSetting());
    LogToggle(toggle, with_.Log);
    const std::vector<KeyEvent> events = LayoutToggleEvents(toggle, with_.Input);
    const std::size_t layouts = with_.Layouts.InstalledLanguages().size();
    const std::size_t presses = layouts < kLayoutsToAskBack ? 1 : layouts;
    const std::uint32_t patience = with_.Targets.IsOwnProcess(window) ? 0 : kSwitchMs;
    for (std::size_t i = 0; i < presses; ++i) {
        const InputState state = keys.Send(events, kSwitchMs, 0);
        if (presses == 1 || state == InputState::NotInFront || state == InputState::NotTaken) {
            return state;
        }
        if (patience > 0) {
            with_.Targets.Wake(window);
        }
        const std::uint32_t start = with_.Clock.TickCount();
        while (!HasLanguage(language, window) && with_.Clock.TickCount() - start < patience) {
            with_.Clock.Sleep(kStepMs);
        }
        if (HasLanguage(language, window)) {
            break;
        }
    }
    return InputState::Sent;
}

bool LayoutSwitcher::HasLanguage(Lcid language, WindowHandle window) const {
    const std::uint32_t thread = with_.Windows.ThreadOf(window).Thread;
    return LanguageOf(with_.Windows.KeyboardLayout(thread)) == language;
}

}  // namespace vbr
