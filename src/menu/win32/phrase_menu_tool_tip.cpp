// SPDX-License-Identifier: MIT
#include "menu/win32/phrase_menu_tool_tip.h"

#include <commctrl.h>

#include "base/text.h"
#include "base/version.h"
#include "menu/command_icons.h"
#include "platform/win32/wide.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

constexpr DWORD kStyle = TTS_NOPREFIX | TTS_NOANIMATE | TTS_CLOSE;
constexpr char16_t kDefaultText[] = u"Ooops! Tip text not found";

// The dialog of that name is a program of its own where the system has one.
std::u16string OpenWithProgram() {
    wchar_t folder[MAX_PATH] = L"";
    GetSystemDirectoryW(folder, MAX_PATH);
    return Concat(std::u16string_view(FromWide(folder)), u"\\OpenWith.exe");
}

}  // namespace

void CPhraseMenuToolTip::Create(HWND owner) {
    CreateTip(owner, kDefaultText, kStyle, NameAndVersion());
}

void CPhraseMenuToolTip::DressTip() {
    SendMessageW(Window(), TTM_SETMAXTIPWIDTH, 0, GetSystemMetrics(SM_CXSCREEN) / 2);
    SendMessageW(Window(), WM_SETFONT, reinterpret_cast<WPARAM>(painter_.PlainFont()), FALSE);
}

HICON CPhraseMenuToolTip::GetCommandIcon(std::uint32_t id) {
    HICON program = nullptr;
    if (IsEditorCommand(id)) {
        program = painter_.Icons().GetProgram(editor_);
    } else if (id == kCmdOpenWith) {
        program = painter_.Icons().GetProgram(OpenWithProgram());
    }
    if (program) {
        return program;
    }
    return painter_.Icons().GetResource(IconOfCommand(id), GetSystemMetrics(SM_CXSMICON));
}

void CPhraseMenuToolTip::GetTipText(std::u16string& text, std::uint32_t id, HMENU menu,
                                    std::u16string& title) {
    text = strings_.LoadString(static_cast<int>(id));
    if (const CMenuItemInfo* info = menu_.Find(menu, id)) {
        title = info->Label;
        text = info->Tip;
    }
}

}  // namespace vbr
