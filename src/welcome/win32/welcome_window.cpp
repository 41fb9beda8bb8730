// SPDX-License-Identifier: MIT
#include "welcome/win32/welcome_window.h"

#include "platform/win32/wide.h"
#include "platform/win32/window_icons.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

constexpr UINT_PTR kTimer = 1;
constexpr UINT kLookEveryMs = 500;
constexpr int kIconSize = 48;  // at 96 dots an inch

constexpr std::pair<int, int> kTexts[] = {
    {kCtlWelcomeGreeting, kStrWelcomeGreeting}, {kCtlWelcomeExplain, kStrWelcomeExplain},
    {kCtlWelcomeHotKey, kStrWelcomeHotKey},     {kCtlWelcomeTry, kStrWelcomeTry},
    {kCtlWelcomeStart, kStrWelcomeStart},       {kCtlWelcomeEdit, kStrWelcomeEdit},
    {kCtlWelcomeClose, kStrWelcomeClose},
};

UniqueGdi<HFONT> LargerFont(HWND like, int percent, LONG weight) {
    LOGFONTW font{};
    const auto plain = reinterpret_cast<HFONT>(SendMessageW(like, WM_GETFONT, 0, 0));
    GetObjectW(plain, sizeof font, &font);
    font.lfHeight = MulDiv(font.lfHeight, percent, 100);
    font.lfWeight = weight;
    return UniqueGdi<HFONT>(CreateFontIndirectW(&font));
}

}  // namespace

const int WelcomeWindow::kDialog = kDialogWelcome;

bool WelcomeWindow::OnInitDialog() {
    SetWindowIcons(Handle(), kIconProgram);
    SetWindowTextW(Handle(), Wide(with_.Texts.LoadString(kStrWelcomeTitle)));
    for (const auto& [control, text] : kTexts) {
        SetText(control, with_.Texts.LoadString(text));
    }
    MakeFonts();
    ShowWindow(Control(kCtlWelcomeStart), SW_HIDE);
    Update();
    SetTimer(Handle(), kTimer, kLookEveryMs, nullptr);
    SetFocus(Control(kCtlWelcomeBox));
    return false;
}

void WelcomeWindow::MakeFonts() {
    big_ = LargerFont(Handle(), 150, FW_SEMIBOLD);
    bold_ = LargerFont(Handle(), 130, FW_BOLD);
    SendMessageW(Control(kCtlWelcomeGreeting), WM_SETFONT, reinterpret_cast<WPARAM>(big_.get()), 0);
    SendMessageW(Control(kCtlWelcomeKeys), WM_SETFONT, reinterpret_cast<WPARAM>(bold_.get()), 0);
    const HDC dc = GetDC(Handle());
    const int size = MulDiv(kIconSize, GetDeviceCaps(dc, LOGPIXELSX), USER_DEFAULT_SCREEN_DPI);
    ReleaseDC(Handle(), dc);
    const HANDLE icon = LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(kIconProgram),
                                   IMAGE_ICON, size, size, LR_SHARED);
    SendMessageW(Control(kCtlWelcomeIcon), STM_SETIMAGE, IMAGE_ICON,
                 reinterpret_cast<LPARAM>(icon));
}

void WelcomeWindow::Update() {
    WelcomeFacts facts = with_.Facts();
    facts.Box = TextOf(kCtlWelcomeBox);
    const WelcomeState state = StateOf(facts, with_.Texts);
    if (state != state_) {
        state_ = state;
        SetText(kCtlWelcomeState, state.Text);
        ShowWindow(Control(kCtlWelcomeStart), state.MayStart ? SW_SHOWNA : SW_HIDE);
    }
    const std::u16string keys = with_.Keys();
    if (keys != keys_) {
        keys_ = keys;
        SetText(kCtlWelcomeKeys, keys);
    }
}

std::optional<INT_PTR> WelcomeWindow::OnMessage(UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
        case WM_TIMER:
            Update();
            return TRUE;
        case WM_CLOSE:
            EndDialog(Handle(), 0);
            return TRUE;
        case WM_COMMAND:
            switch (LOWORD(wParam)) {
                case IDCANCEL:
                case kCtlWelcomeClose:
                    EndDialog(Handle(), 0);
                    break;
                case kCtlWelcomeStart:
                    with_.StartProgram();
                    break;
                case kCtlWelcomeEdit:
                    with_.StartEditor();
                    break;
                case kCtlWelcomeBox:
                    if (HIWORD(wParam) == EN_CHANGE) {
                        Update();
                    }
                    break;
                default:
                    break;
            }
            return TRUE;
        default:
            return std::nullopt;
    }
}

}  // namespace vbr
