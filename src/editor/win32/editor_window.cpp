// SPDX-License-Identifier: MIT
#include "editor/win32/editor_window.h"

#include <algorithm>
#include <commctrl.h>
#include <iterator>
#include <optional>
#include <richedit.h>
#include <utility>
#include <windowsx.h>

#include "base/text.h"
#include "macros/macro_values.h"
#include "platform/object_names.h"
#include "platform/win32/menu_handle.h"
#include "platform/win32/wide.h"
#include "platform/win32/window_icons.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

constexpr wchar_t kClass[] = L"Vellumbridge_Editor";
constexpr UINT kMsgRefill = WM_APP + 1;
constexpr int kTitleChars = 60;
constexpr int kHintChars = 512;
constexpr int kMacrosInColumn = 25;
constexpr std::int32_t kKinds[] = {kDataTypeText, kDataTypeRtf, kDataTypeExec};
constexpr int kKindNames[] = {kStrPlainText, kStrFormattedText, kStrEditorKindCommand};

UINT RequestMessage() {
    static const UINT message = RegisterWindowMessageW(Wide(kMessageEditorRequest.data()));
    return message;
}

void RegisterEditorClass() {
    WNDCLASSW info{};
    GetClassInfoW(nullptr, L"#32770", &info);
    info.hInstance = GetModuleHandleW(nullptr);
    info.lpszClassName = kClass;
    info.style &= ~UINT{CS_GLOBALCLASS};
    RegisterClassW(&info);
}

// How a control follows the window's size.
struct Anchor {
    int Id;
    bool Right;  // its place
    bool Bottom;
    bool Wider;  // its size
    bool Higher;
};

constexpr Anchor kAnchors[] = {
    {kCtlEditorTree, false, false, false, true},
    {kCtlEditorMoveUp, false, true, false, false},
    {kCtlEditorMoveDown, false, true, false, false},
    {kCtlEditorMoveTo, false, true, false, false},
    {kCtlEditorSettings, false, true, false, false},
    {kCtlEditorTitle, false, false, true, false},
    {kCtlEditorKind, false, false, true, false},
    {kCtlEditorInsertMacro, true, false, false, false},
    {kCtlEditorText, false, false, true, true},
    {kCtlEditorHintLabel, false, true, false, false},
    {kCtlEditorHint, false, true, true, false},
    {kCtlEditorEnabled, false, true, false, false},
    {kCtlEditorTitleOnly, false, true, false, false},
    {kCtlEditorNeedsSelection, false, true, false, false},
    {kCtlEditorLineAbove, false, true, false, false},
    {kCtlEditorLineBelow, false, true, false, false},
    {kCtlEditorSave, true, true, false, false},
    {kCtlEditorClose, true, true, false, false},
};

constexpr std::pair<int, int> kLabels[] = {
    {kCtlEditorNewPhrase, kStrEditorNewPhrase},
    {kCtlEditorNewGroup, kStrEditorNewGroup},
    {kCtlEditorDelete, kStrEditorDelete},
    {kCtlEditorMoveUp, kStrEditorMoveUp},
    {kCtlEditorMoveDown, kStrEditorMoveDown},
    {kCtlEditorMoveTo, kStrEditorMoveTo},
    {kCtlEditorSettings, kStrEditorSettings},
    {kCtlEditorSave, kStrEditorSave},
    {kCtlEditorClose, kStrEditorClose},
    {kCtlEditorTitleLabel, kStrEditorTitleLabel},
    {kCtlEditorKindLabel, kStrEditorKindLabel},
    {kCtlEditorInsertMacro, kStrEditorInsertMacro},
    {kCtlEditorTextLabel, kStrEditorTextLabel},
    {kCtlEditorHintLabel, kStrEditorHintLabel},
    {kCtlEditorEnabled, kStrEditorEnabled},
    {kCtlEditorTitleOnly, kStrEditorTitleOnly},
    {kCtlEditorNeedsSelection, kStrEditorNeedsSelection},
    {kCtlEditorLineAbove, kStrEditorLineAbove},
    {kCtlEditorLineBelow, kStrEditorLineBelow},
};

// What Ctrl and that key change of formatted text.
std::optional<DWORD> EffectOfKey(WPARAM key) {
    switch (key) {
        case 'B':
            return CFE_BOLD;
        case 'I':
            return CFE_ITALIC;
        case 'U':
            return CFE_UNDERLINE;
        default:
            return std::nullopt;
    }
}

}  // namespace

HWND EditorWindow::FindOther() {
    return FindWindowW(kClass, nullptr);
}

bool EditorWindow::Open(const EditorRequest& request) {
    RegisterEditorClass();
    if (!CreateModeless(kDialogEditor)) {
        return false;
    }
    // This one may run elevated, and the second one not.
    ChangeWindowMessageFilterEx(Handle(), RequestMessage(), MSGFLT_ALLOW, nullptr);
    ShowWindow(Handle(), SW_SHOWNORMAL);
    Serve(request);
    return true;
}

void EditorWindow::Serve(const EditorRequest& request) {
    if (IsIconic(Handle())) {
        ShowWindow(Handle(), SW_RESTORE);
    }
    SetForegroundWindow(Handle());
    if (request.AddFromClipboard) {
        AddText(with_.ClipboardText());
    }
    if (request.AddSelection) {
        AddText(with_.SelectedText());
    }
    // They may be open already.
    if (request.ShowSettings && IsWindowEnabled(Handle())) {
        EditSettings();
    }
}

bool EditorWindow::Translate(MSG& message) {
    if (message.message == WM_KEYDOWN && GetKeyState(VK_CONTROL) < 0 && GetKeyState(VK_MENU) >= 0 &&
        GetForegroundWindow() == Handle()) {
        if (message.wParam == 'S') {
            SaveChanges();
            return true;
        }
        const auto effect = EffectOfKey(message.wParam);
        if (effect && message.hwnd == Control(kCtlEditorText) && ReadForm().Kind == kDataTypeRtf) {
            text_.ToggleEffect(*effect);
            EnableControls();
            return true;
        }
        if (message.wParam == 'N') {
            AddPhrase(FormForText(u""));
            return true;
        }
    }
    return IsDialogMessageW(Handle(), &message) != 0;
}

bool EditorWindow::OnInitDialog() {
    SetWindowIcons(Handle(), kIconProgram);
    SetTexts();
    SendMessageW(Control(kCtlEditorTitle), EM_LIMITTEXT, kTitleChars, 0);
    SendMessageW(Control(kCtlEditorHint), EM_LIMITTEXT, kHintChars, 0);
    tree_.Attach(Control(kCtlEditorTree));
    text_.Attach(Control(kCtlEditorText));
    RECT client{};
    GetClientRect(Handle(), &client);
    size_ = {client.right, client.bottom};
    RECT window{};
    GetWindowRect(Handle(), &window);
    smallest_ = {window.right - window.left, window.bottom - window.top};
    const EditResult loaded = with_.Phrases.Load(with_.Folder());
    Finish(loaded);
    isUnannounced_ = false;
    SetFocus(Control(kCtlEditorTree));
    return false;
}

void EditorWindow::SetTexts() {
    SetWindowTextW(Handle(), Wide(Concat(with_.Texts.LoadString(kStrProductName), u" - ",
                                         with_.Texts.LoadString(kStrEditorTitle))));
    for (const auto& [control, text] : kLabels) {
        SetText(control, with_.Texts.LoadString(text));
    }
    for (const int name : kKindNames) {
        SendMessageW(Control(kCtlEditorKind), CB_ADDSTRING, 0,
                     reinterpret_cast<LPARAM>(Wide(with_.Texts.LoadString(name))));
    }
}

POINT EditorWindow::OnScreen(LPARAM point) const {
    POINT place{GET_X_LPARAM(point), GET_Y_LPARAM(point)};
    ClientToScreen(Handle(), &place);
    return place;
}

std::optional<INT_PTR> EditorWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == RequestMessage()) {
        Serve(RequestOfBits(static_cast<std::uint32_t>(wParam)));
        return TRUE;
    }
    switch (message) {
        case WM_COMMAND:
            OnCommand(LOWORD(wParam), HIWORD(wParam));
            return TRUE;
        case WM_NOTIFY:
            return OnNotify(*reinterpret_cast<const NMHDR*>(lParam));
        case WM_SIZE:
            OnSize(LOWORD(lParam), HIWORD(lParam));
            return FALSE;
        case WM_GETMINMAXINFO:
            if (smallest_.cx > 0) {
                reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {smallest_.cx,
                                                                         smallest_.cy};
            }
            return FALSE;
        case WM_MOUSEMOVE:
            tree_.DragTo(OnScreen(lParam));
            return FALSE;
        case WM_LBUTTONUP:
            Drop(OnScreen(lParam));
            return FALSE;
        case WM_CAPTURECHANGED:
            tree_.EndDrag({-1, -1});
            return FALSE;
        case WM_ACTIVATEAPP:
            if (!wParam) {
                OnLeft();
            }
            return FALSE;
        case kMsgRefill:
            Refill();
            return TRUE;
        case WM_CLOSE:
            OnClose();
            return TRUE;
        case WM_ENDSESSION:
            if (wParam) {
                SaveForm();
            }
            return FALSE;
        case WM_DESTROY:
            PostQuitMessage(0);
            return FALSE;
        default:
            return std::nullopt;
    }
}

void EditorWindow::OnCommand(int id, int code) {
    switch (id) {
        case kCtlEditorNewPhrase:
            AddPhrase(FormForText(u""));
            break;
        case kCtlEditorNewGroup:
            AddGroup();
            break;
        case kCtlEditorDelete:
            Delete();
            break;
        case kCtlEditorMoveUp:
        case kCtlEditorMoveDown:
            if (SaveChanges()) {
                Finish(with_.Phrases.Shift(tree_.Selected(), id == kCtlEditorMoveUp));
            }
            break;
        case kCtlEditorMoveTo:
            ChooseGroup();
            break;
        case kCtlEditorSettings:
            EditSettings();
            break;
        case kCtlEditorSave:
            SaveChanges();
            break;
        case kCtlEditorClose:
            OnClose();
            break;
        case kCtlEditorInsertMacro:
            InsertMacro();
            break;
        case kCtlEditorKind:
            if (code == CBN_SELCHANGE) {
                ChangeKind();
            }
            break;
        default:
            if (!isLoading_ && (code == EN_CHANGE || code == BN_CLICKED)) {
                EnableControls();
            }
            break;
    }
}

INT_PTR EditorWindow::OnNotify(const NMHDR& notice) {
    if (notice.idFrom != kCtlEditorTree) {
        return FALSE;
    }
    switch (notice.code) {
        case TVN_SELCHANGINGW: {
            // One that can't be saved keeps the selection.
            const bool stays = !isLoading_ && !SaveAndTell();
            // The tree can't be filled anew within its own notice.
            PostMessageW(Handle(), kMsgRefill, 0, 0);
            SetWindowLongPtrW(Handle(), DWLP_MSGRESULT, stays);
            return TRUE;
        }
        case TVN_SELCHANGEDW:
            if (!isLoading_) {
                OnSelected();
            }
            return TRUE;
        case TVN_BEGINDRAGW:
            tree_.BeginDrag(reinterpret_cast<const NMTREEVIEWW&>(notice).itemNew.hItem, Handle());
            return TRUE;
        case TVN_KEYDOWN:
            if (reinterpret_cast<const NMTVKEYDOWN&>(notice).wVKey == VK_DELETE) {
                Delete();
            } else if (reinterpret_cast<const NMTVKEYDOWN&>(notice).wVKey == VK_F2) {
                SetFocus(Control(kCtlEditorTitle));
            }
            return FALSE;
        default:
            return FALSE;
    }
}

void EditorWindow::OnSize(int width, int height) {
    if (size_.cx == 0 || width == 0) {
        return;
    }
    const int dx = width - size_.cx;
    const int dy = height - size_.cy;
    size_ = {width, height};
    HDWP places = BeginDeferWindowPos(static_cast<int>(std::size(kAnchors)));
    for (const Anchor& anchor : kAnchors) {
        const HWND control = Control(anchor.Id);
        RECT rect{};
        GetWindowRect(control, &rect);
        MapWindowPoints(nullptr, Handle(), reinterpret_cast<POINT*>(&rect), 2);
        places = DeferWindowPos(
            places, control, nullptr, rect.left + (anchor.Right ? dx : 0),
            rect.top + (anchor.Bottom ? dy : 0), rect.right - rect.left + (anchor.Wider ? dx : 0),
            rect.bottom - rect.top + (anchor.Higher ? dy : 0), SWP_NOZORDER | SWP_NOACTIVATE);
    }
    EndDeferWindowPos(places);
}

// What can't be saved now is told when the user comes back to it.
void EditorWindow::OnLeft() {
    SaveForm();
    Refill();
    if (std::exchange(isUnannounced_, false)) {
        with_.Announce();
    }
}

void EditorWindow::OnClose() {
    if (!SaveChanges() && Tell(with_.Texts.LoadString(kStrEditorCloseAnyway),
                               MB_YESNO | MB_ICONWARNING | MB_DEFBUTTON2) != IDYES) {
        return;
    }
    DestroyWindow(Handle());
}

void EditorWindow::LoadTree(const std::filesystem::path& select) {
    isLoading_ = true;
    tree_.Fill(with_.Phrases.Tree().Commands(), select);
    isLoading_ = false;
    OnSelected();
}

void EditorWindow::OnSelected() {
    ShowForm(with_.Phrases.Find(tree_.Selected()));
}

void EditorWindow::ShowForm(const VBRCommand* record) {
    if (record && record->FilePath == shownPath_ && FormOf(*record) == ReadForm()) {
        // It was saved: the caret and what can be undone stay.
        shown_ = FormOf(*record);
        text_.NoteSaved();
        EnableControls();
        return;
    }
    isLoading_ = true;
    shown_ = record ? FormOf(*record) : PhraseForm();
    shownPath_ = record ? record->FilePath : std::filesystem::path();
    isGroupShown_ = record && record->IsGroup();
    SetText(kCtlEditorTitle, shown_.Title);
    SetText(kCtlEditorHint, shown_.Hint);
    const auto* kind = std::find(std::begin(kKinds), std::end(kKinds), shown_.Kind);
    SendMessageW(Control(kCtlEditorKind), CB_SETCURSEL,
                 isGroupShown_ || !record ? static_cast<WPARAM>(-1)
                                          : static_cast<WPARAM>(kind - std::begin(kKinds)),
                 0);
    Check(kCtlEditorEnabled, shown_.Enabled && record);
    Check(kCtlEditorTitleOnly, shown_.TitleOnly);
    Check(kCtlEditorNeedsSelection, shown_.NeedsSelection);
    Check(kCtlEditorLineAbove, shown_.LineBefore);
    Check(kCtlEditorLineBelow, shown_.LineAfter);
    text_.Load(shown_.Kind, shown_.Text);
    isLoading_ = false;
    EnableControls();
}

void EditorWindow::EnableControls() {
    const bool isAny = !shownPath_.empty();
    const bool isPhrase = isAny && !isGroupShown_;
    for (const int id :
         {kCtlEditorDelete, kCtlEditorMoveUp, kCtlEditorMoveDown, kCtlEditorMoveTo, kCtlEditorTitle,
          kCtlEditorTitleLabel, kCtlEditorLineAbove, kCtlEditorLineBelow}) {
        Enable(id, isAny);
    }
    for (const int id : {kCtlEditorKind, kCtlEditorKindLabel, kCtlEditorTextLabel, kCtlEditorHint,
                         kCtlEditorHintLabel, kCtlEditorEnabled, kCtlEditorTitleOnly,
                         kCtlEditorNeedsSelection, kCtlEditorInsertMacro}) {
        Enable(id, isPhrase);
    }
    text_.Enable(isPhrase);
    // Reading a long text at each key would take its time.
    Enable(kCtlEditorSave, isAny && (text_.IsModified() || ReadForm() != shown_));
}

PhraseForm EditorWindow::ReadForm() const {
    PhraseForm form = shown_;
    form.Title = TextOf(kCtlEditorTitle);
    form.LineBefore = IsChecked(kCtlEditorLineAbove);
    form.LineAfter = IsChecked(kCtlEditorLineBelow);
    if (isGroupShown_) {
        return form;
    }
    const auto kind = SendMessageW(Control(kCtlEditorKind), CB_GETCURSEL, 0, 0);
    form.Kind = kKinds[kind < 0 ? 0 : kind];
    form.Hint = TextOf(kCtlEditorHint);
    form.Enabled = IsChecked(kCtlEditorEnabled);
    form.TitleOnly = IsChecked(kCtlEditorTitleOnly);
    form.NeedsSelection = IsChecked(kCtlEditorNeedsSelection);
    // A control writes formatted text in its own way, also where nothing was changed.
    if (text_.IsModified()) {
        form.Text = text_.Text(form.Kind);
    }
    return form;
}

EditResult EditorWindow::SaveForm() {
    PhraseForm form = ReadForm();
    if (shownPath_.empty() || form == shown_) {
        return {shownPath_, {}};
    }
    if (Trim(form.Title, u" \t").empty()) {
        form.Title = FormForText(isGroupShown_ ? u"" : form.Text).Title;
    }
    EditResult result = with_.Phrases.Save(shownPath_, form, shown_);
    if (result) {
        isUnannounced_ = true;
        isRefillDue_ = true;
        renamedFrom_ = shownPath_;
        renamedTo_ = shownPath_ = result.Path;
    }
    return result;
}

bool EditorWindow::SaveAndTell() {
    const EditResult result = SaveForm();
    if (!result) {
        Tell(result.Failure, MB_ICONERROR);
    }
    return static_cast<bool>(result);
}

bool EditorWindow::SaveChanges() {
    const bool saved = SaveAndTell();
    Refill();
    return saved;
}

void EditorWindow::Refill() {
    if (!std::exchange(isRefillDue_, false)) {
        return;
    }
    // What lies in a group that was renamed has a new path.
    std::filesystem::path selected = tree_.Selected();
    const std::filesystem::path below = selected.lexically_relative(renamedFrom_);
    if (renamedFrom_ != renamedTo_ && !below.empty() && *below.begin() != "..") {
        selected = below == "." ? renamedTo_ : renamedTo_ / below;
    }
    LoadTree(selected);
}

int EditorWindow::Tell(const std::u16string& text, UINT flags) const {
    return MessageBoxW(Handle(), Wide(text), Wide(with_.Texts.LoadString(kStrProductName)), flags);
}

bool EditorWindow::Finish(const EditResult& result) {
    if (result) {
        isUnannounced_ = true;
    } else {
        Tell(result.Failure, MB_ICONERROR);
    }
    LoadTree(result.Path);
    return static_cast<bool>(result);
}

void EditorWindow::AddPhrase(const PhraseForm& form) {
    if (SaveChanges() &&
        Finish(with_.Phrases.AddPhrase(with_.Phrases.GroupOf(tree_.Selected()), form))) {
        SetFocus(Control(kCtlEditorTitle));
        SendMessageW(Control(kCtlEditorTitle), EM_SETSEL, 0, -1);
    }
}

void EditorWindow::AddText(const std::u16string& text) {
    if (!text.empty()) {
        AddPhrase(FormForText(text));
    }
}

void EditorWindow::AddGroup() {
    if (SaveChanges() &&
        Finish(with_.Phrases.AddGroup(with_.Phrases.GroupOf(tree_.Selected()),
                                      with_.Texts.LoadString(kStrEditorNewGroupTitle)))) {
        SetFocus(Control(kCtlEditorTitle));
        SendMessageW(Control(kCtlEditorTitle), EM_SETSEL, 0, -1);
    }
}

void EditorWindow::Delete() {
    if (shownPath_.empty()) {
        return;
    }
    const int question = isGroupShown_ ? kStrEditorDeleteGroup : kStrEditorDeletePhrase;
    if (Tell(Concat(with_.Texts.LoadString(question), u"\n\n", shown_.Title),
             MB_YESNO | MB_ICONQUESTION) == IDYES) {
        Finish(with_.Phrases.Delete(shownPath_));
    }
}

void EditorWindow::ChooseGroup() {
    if (!SaveChanges()) {
        return;
    }
    std::vector<std::filesystem::path> groups = {with_.Phrases.GroupOf({})};
    std::vector<MenuEntry> entries(1);
    entries[0].Id = 1;
    entries[0].Text = with_.Texts.LoadString(kStrEditorRoot);
    with_.Phrases.Tree().WalkCommands([&](const VBRCommand& record, const VBRCommand*) {
        if (record.IsGroup()) {
            groups.push_back(record.FilePath);
            MenuEntry& entry = entries.emplace_back();
            entry.Id = static_cast<int>(groups.size());
            std::u16string name = record.Text;
            ReplaceAll(name, u"&", u"&&");
            const auto depth = std::distance(record.FilePath.begin(), record.FilePath.end()) -
                               std::distance(groups[0].begin(), groups[0].end());
            entry.Text =
                std::u16string(static_cast<std::size_t>(4 * std::max<std::ptrdiff_t>(depth, 0)),
                               u' ') +
                name;
        }
        return true;
    });
    const UniqueMenu menu = MakePopupMenu(entries);
    RECT button{};
    GetWindowRect(Control(kCtlEditorMoveTo), &button);
    const int chosen = TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_BOTTOMALIGN, button.left,
                                      button.top, 0, Handle(), nullptr);
    if (chosen > 0) {
        Finish(with_.Phrases.Move(tree_.Selected(), groups[static_cast<std::size_t>(chosen - 1)]));
    }
}

void EditorWindow::InsertMacro() {
    const auto tokens = MacroValues::FixedTokens();
    const UniqueMenu menu(CreatePopupMenu());
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const bool isNewColumn = i > 0 && i % kMacrosInColumn == 0;
        AppendMenuW(menu.get(), isNewColumn ? MF_MENUBARBREAK : MF_STRING, i + 1,
                    Wide(std::u16string(tokens[i])));
    }
    RECT button{};
    GetWindowRect(Control(kCtlEditorInsertMacro), &button);
    const int chosen = TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_RIGHTALIGN, button.right,
                                      button.bottom, 0, Handle(), nullptr);
    if (chosen > 0) {
        text_.Insert(std::u16string(tokens[static_cast<std::size_t>(chosen - 1)]));
    }
}

void EditorWindow::EditSettings() {
    if (SaveChanges() && with_.EditSettings(Handle())) {
        with_.Announce();
        isUnannounced_ = false;
        const EditResult loaded = with_.Phrases.Load(with_.Folder());
        LoadTree(shownPath_);
        if (!loaded) {
            Finish(loaded);
        }
    }
}

void EditorWindow::ChangeKind() {
    isLoading_ = true;
    text_.ChangeKind(ReadForm().Kind);
    isLoading_ = false;
    EnableControls();
}

void EditorWindow::Drop(POINT point) {
    const auto drop = tree_.EndDrag(point);
    if (drop && SaveChanges()) {
        Finish(with_.Phrases.Move(drop->What, with_.Phrases.GroupOf(drop->Onto)));
    }
}

}  // namespace vbr
