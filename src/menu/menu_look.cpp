// SPDX-License-Identifier: MIT
#include "menu/menu_look.h"

#include <algorithm>
#include <iterator>

#include "base/text.h"
#include "menu/extra_commands.h"
#include "phrases/command_record.h"

namespace vbr {
namespace {

constexpr MenuColor kRed = 0x0000FF;
constexpr MenuColor kBlue = 0xFF0000;
constexpr MenuColor kGreen = 0x008000;
constexpr MenuColor kSideBar = 0xE3E3E3;
constexpr MenuColor kSideBarText = 0x7FAAFF;
constexpr MenuColor kStripeStep = 4;

constexpr std::u16string_view kUrlStarts[] = {u"HTTP://", u"HTTPS://", u"WWW."};

}  // namespace

MenuColors ChooseMenuColors(const SystemMenuColors& system) {
    if (system.HighContrast) {
        return {system,          system.Menu,     system.MenuText,
                system.MenuText, system.MenuText, system.HighlightText,
                system.MenuText, system.MenuText, system.HighlightText};
    }
    return {system, kSideBar, kSideBarText, kGreen, kBlue, kRed, kRed, kBlue, kRed};
}

MenuColor StripeColor(MenuColor color) {
    if (color == 0) {
        return kStripeStep * 0x010101;
    }
    MenuColor stripe = 0;
    for (const int shift : {0, 8, 16}) {
        stripe |= (((color >> shift) - kStripeStep) & 0xFF) << shift;
    }
    return stripe;
}

std::size_t IndexOf(MenuFont font) {
    return (font.Italic + 2U * font.Underline) * 2 + font.Bold;
}

MenuFont FontOf(const CMenuItemInfo& info) {
    return {.Italic = info.DataType == kDataTypeRtf,
            .Underline = info.DataType == kDataTypeExec,
            .Bold = IsExtraCommand(info)};
}

MenuIcon IconOf(const CMenuItemInfo& info) {
    if (info.IsPopup() || info.IsSeparator() || IsExtraCommand(info)) {
        return MenuIcon::None;
    }
    if (info.DataType == kDataTypeText) {
        return MenuIcon::PlainText;
    }
    if (info.DataType == kDataTypeRtf) {
        return MenuIcon::FormattedText;
    }
    if (FindNoCase(info.Label, u"GOOGLE") != info.Label.npos) {
        return MenuIcon::SearchOne;
    }
    if (FindNoCase(info.Label, u"YANDEX") != info.Label.npos) {
        return MenuIcon::SearchTwo;
    }
    const bool isUrl = std::any_of(
        std::begin(kUrlStarts), std::end(kUrlStarts),
        [&info](std::u16string_view start) { return StartsWithNoCase(info.PhraseData, start); });
    return isUrl ? MenuIcon::Url : MenuIcon::Execute;
}

}  // namespace vbr
