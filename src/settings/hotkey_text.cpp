// SPDX-License-Identifier: MIT
#include "settings/hotkey_text.h"

#include "settings/settings.h"

namespace vbr {
namespace {

// F1 to F24, which no program needs for typing.
constexpr std::uint16_t kFirstFunctionKey = 112;
constexpr std::uint16_t kLastFunctionKey = 135;

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

bool IsUsableHotkey(std::uint16_t mods, std::uint16_t vk) {
    const bool isFunctionKey = vk >= kFirstFunctionKey && vk <= kLastFunctionKey;
    const bool isShiftAlone = (mods & ~kModShift) == 0;
    return vk != 0 && (isFunctionKey || !isShiftAlone);
}

}  // namespace vbr
