// SPDX-License-Identifier: MIT
#include "welcome/welcome_guide.h"

#include "base/text.h"
#include "resources/resource_ids.h"

namespace vbr {

WelcomeState StateOf(const WelcomeFacts& facts, const Strings& texts) {
    if (!facts.IsRunning) {
        return {texts.LoadString(kStrWelcomeNotRunning), true};
    }
    if (!facts.IsHotkeyOn) {
        return {texts.LoadString(kStrWelcomeOff), false};
    }
    const bool hasArrived = !Trim(facts.Box, u" \t\r\n").empty();
    return {hasArrived ? texts.LoadString(kStrWelcomeArrived) : std::u16string(), false};
}

std::u16string WelcomeKeys(std::u16string_view hotkey, bool doubled, const Strings& texts) {
    std::u16string keys(hotkey);
    ReplaceAll(keys, u"+", u" + ");
    return doubled ? Concat(keys, u"  ", texts.LoadString(kStrWelcomeTwice)) : keys;
}

}  // namespace vbr
