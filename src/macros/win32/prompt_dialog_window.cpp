// SPDX-License-Identifier: MIT
#include "macros/win32/prompt_dialog_window.h"

#include "platform/win32/answering.h"
#include "platform/win32/wide.h"
#include "platform/win32/win_geometry.h"
#include "platform/win32/window_icons.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

constexpr int kTitleMax = 256;
constexpr UINT kMsgPlaceAgain = WM_APP + 1;
constexpr WPARAM kMoveByMouse = SC_MOVE | HTCAPTION;
constexpr int kForegroundTries = 50;
constexpr DWORD kForegroundStepMs = 10;

// The input of this thread joined with that of a window's, for as long as this lives. Only so may
// this thread take the foreground from the window and set its focus.
class InputAttachment {
  public:
    // A thread that hangs is left alone: this one would hang with it.
    explicit InputAttachment(HWND window)
        : thread_(window ? GetWindowThreadProcessId(window, nullptr) : 0) {
        const bool isOwn = thread_ == GetCurrentThreadId();
        attached_ = thread_ != 0 && !isOwn && Answers(window) &&
                    AttachThreadInput(GetCurrentThreadId(), thread_, TRUE);
        reachable_ = isOwn || attached_;
    }
    ~InputAttachment() {
        if (attached_) {
            AttachThreadInput(GetCurrentThreadId(), thread_, FALSE);
        }
    }
    InputAttachment(const InputAttachment&) = delete;
    InputAttachment& operator=(const InputAttachment&) = delete;

    explicit operator bool() const { return reachable_; }

  private:
    DWORD thread_;
    bool attached_ = false;
    bool reachable_ = false;
};

// The caret of the window's thread in screen coordinates.
std::optional<RECT> CaretOf(HWND window) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    const DWORD thread = window ? GetWindowThreadProcessId(window, nullptr) : 0;
    if (thread == 0 || !GetGUIThreadInfo(thread, &info) || !info.hwndCaret) {
        return std::nullopt;
    }
    RECT caret = info.rcCaret;
    MapWindowPoints(info.hwndCaret, nullptr, reinterpret_cast<POINT*>(&caret), 2);
    return caret;
}

PromptSurroundings SurroundingsOf(HWND window) {
    const std::optional<RECT> caret = CaretOf(window);
    RECT target{};
    const bool hasTarget = GetWindowRect(window, &target) != 0;
    const HMONITOR monitor = MonitorFromRect(caret ? &*caret : &target, MONITOR_DEFAULTTONEAREST);
    MONITORINFO screen{};
    screen.cbSize = sizeof screen;
    GetMonitorInfoW(monitor, &screen);
    return {.Caret = caret ? std::optional(FromWin(*caret)) : std::nullopt,
            .Target = FromWin(hasTarget ? target : screen.rcWork),
            .WorkArea = FromWin(screen.rcWork)};
}

// The window's title without a message to its thread; a control has that of its top window.
std::u16string TitleOf(HWND window) {
    wchar_t title[kTitleMax];
    for (const HWND titled : {window, GetAncestor(window, GA_ROOT)}) {
        const int length = titled ? InternalGetWindowText(titled, title, kTitleMax) : 0;
        if (length > 0) {
            return FromWide(title, static_cast<std::size_t>(length));
        }
    }
    return {};
}

// The keyboard goes back to the window, and what follows is typed into it.
void GiveFocusBack(HWND window) {
    if (!IsWindow(window)) {
        return;
    }
    const HWND top = GetAncestor(window, GA_ROOT);
    {
        const InputAttachment attached(window);
        SetForegroundWindow(top);
        if (attached) {
            SetFocus(window);
        }
    }
    for (int i = 0; i < kForegroundTries && GetForegroundWindow() != top; ++i) {
        SetForegroundWindow(top);
        Sleep(kForegroundStepMs);
    }
}

}  // namespace

bool CVBRPromptDlg::DoModal() {
    return DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(kDialogPrompt), nullptr,
                           DialogProc, reinterpret_cast<LPARAM>(this)) == IDOK;
}

INT_PTR CALLBACK CVBRPromptDlg::DialogProc(HWND dialog, UINT message, WPARAM wParam,
                                           LPARAM lParam) {
    // The system tells it once; anybody may tell it again.
    if (message == WM_INITDIALOG && GetWindowLongPtrW(dialog, DWLP_USER) == 0) {
        SetWindowLongPtrW(dialog, DWLP_USER, lParam);
        auto* created = reinterpret_cast<CVBRPromptDlg*>(lParam);
        created->dialog_ = dialog;
        created->OnInitDialog();
        return FALSE;  // the focus is where it belongs
    }
    auto* self = reinterpret_cast<CVBRPromptDlg*>(GetWindowLongPtrW(dialog, DWLP_USER));
    return self ? self->OnMessage(message, wParam) : FALSE;
}

INT_PTR CVBRPromptDlg::OnMessage(UINT message, WPARAM wParam) {
    switch (message) {
        case WM_LBUTTONDOWN:
            ReleaseCapture();
            SendMessageW(dialog_, WM_SYSCOMMAND, kMoveByMouse, 0);
            return TRUE;
        case WM_ENTERSIZEMOVE:
            isMoved_ = true;
            return FALSE;
        case WM_DPICHANGED:
            // The system gives the dialog another size after this.
            PostMessageW(dialog_, kMsgPlaceAgain, 0, 0);
            return FALSE;
        case kMsgPlaceAgain:
            Place();
            return TRUE;
        case WM_COMMAND:
            return OnCommand(LOWORD(wParam));
        default:
            return FALSE;
    }
}

INT_PTR CVBRPromptDlg::OnCommand(WORD command) {
    if (command == IDOK) {
        OnOk();
    } else if (command != IDCANCEL) {
        return FALSE;
    }
    EndDialog(dialog_, command);
    return TRUE;
}

void CVBRPromptDlg::OnInitDialog() {
    const std::u16string title = PromptTitle(texts_.LoadString(kStrProductName), TitleOf(target_));
    SetWindowTextW(dialog_, Wide(title));
    SetWindowIcons(dialog_, kIconProgram);
    answer_ = GetDlgItem(dialog_, kCtlPromptAnswer);
    SendMessageW(answer_, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)),
                 FALSE);
    SendMessageW(answer_, EM_SETLIMITTEXT, 0, 0);  // the most that the system allows
    SetWindowTextW(answer_, Wide(text_));
    SetDlgItemTextW(dialog_, IDCANCEL, Wide(texts_.LoadString(kStrCancel)));
    around_ = SurroundingsOf(target_);
    Place();
    ShowWindow(dialog_, SW_SHOW);
    TakeForeground();
    SetFocus(answer_);
    SendMessageW(answer_, EM_SETSEL, 0, -1);
    SetWindowPos(dialog_, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void CVBRPromptDlg::OnOk() {
    std::u16string content(static_cast<std::size_t>(GetWindowTextLengthW(answer_)) + 1, u'\0');
    content.resize(static_cast<std::size_t>(
        GetWindowTextW(answer_, Wide(content.data()), static_cast<int>(content.size()))));
    text_ = PromptAnswer(text_, SendMessageW(answer_, EM_GETMODIFY, 0, 0) != 0, content);
}

void CVBRPromptDlg::Place() const {
    if (isMoved_) {
        return;
    }
    RECT dialog{};
    GetWindowRect(dialog_, &dialog);
    const Rect area =
        PlacePrompt({dialog.right - dialog.left, dialog.bottom - dialog.top}, around_);
    SetWindowPos(dialog_, nullptr, area.Left, area.Top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CVBRPromptDlg::TakeForeground() const {
    if (!IsWindow(target_)) {
        return;
    }
    {
        // Also where joining is refused, as by a target with more rights.
        const InputAttachment attached(target_);
        SetActiveWindow(dialog_);
        SetForegroundWindow(dialog_);
        SetFocus(dialog_);
    }
    // Letting go of the other thread's input can leave the foreground with it.
    if (GetForegroundWindow() != dialog_) {
        SetForegroundWindow(dialog_);
    }
}

bool WinPrompter::ShowPromptDialog(WindowHandle window, std::u16string& inOutText) {
    const HWND target = reinterpret_cast<HWND>(window);
    CVBRPromptDlg dialog(target, inOutText, texts_);
    const bool answered = dialog.DoModal();
    inOutText = answered ? dialog.Text() : std::u16string();
    GiveFocusBack(target);
    return answered;
}

}  // namespace vbr
