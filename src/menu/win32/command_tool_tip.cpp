// SPDX-License-Identifier: MIT
#include "menu/win32/command_tool_tip.h"

#include <commctrl.h>

#include "base/version.h"
#include "menu/command_icons.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

constexpr DWORD kStyle = TTS_NOPREFIX | TTS_NOANIMATE | TTS_ALWAYSTIP;

}  // namespace

HICON CStringMenuToolTip::GetCommandIcon(std::uint32_t) {
    return icons_.GetResource(kIconProgram, GetSystemMetrics(SM_CXSMICON));
}

void CStringMenuToolTip::GetTipText(std::u16string& text, std::uint32_t id, HMENU,
                                    std::u16string&) {
    const std::u16string all = strings_.LoadString(static_cast<int>(id));
    text = all.substr(0, all.find_first_of(u"\r\n"));
}

bool CTrayMenuToolTip::IsSystemCommand(std::uint32_t id) const {
    return !source_.IsOn() || CStringMenuToolTip::IsSystemCommand(id);
}

HICON CTrayMenuToolTip::GetCommandIcon(std::uint32_t id) {
    if (IsEditorCommand(id)) {
        if (const HICON editor = Icons().GetProgram(source_.Editor)) {
            return editor;
        }
    }
    return Icons().GetResource(IconOfCommand(id), GetSystemMetrics(SM_CXSMICON));
}

void CTrayMenuToolTip::GetTipText(std::u16string& text, std::uint32_t id, HMENU menu,
                                  std::u16string& title) {
    if (!source_.Tip(id, text, title)) {
        CStringMenuToolTip::GetTipText(text, id, menu, title);
    }
}

void CTrayMenuToolTip::Create(HWND owner, std::u16string_view defaultText) {
    CreateTip(owner, defaultText, kStyle, NameAndVersion());
}

void CTrayMenuToolTip::DressTip() {
    SendMessageW(Window(), TTM_SETMAXTIPWIDTH, 0, GetSystemMetrics(SM_CXSCREEN) / 2);
}

}  // namespace vbr
