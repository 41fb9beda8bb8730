// SPDX-License-Identifier: MIT
#include "editor/win32/editor_program.h"

#include <commctrl.h>
#include <objbase.h>
#include <shellapi.h>

#include "editor/phrase_editor.h"
#include "editor/win32/editor_window.h"
#include "editor/win32/settings_dialog.h"
#include "platform/clipboard_text.h"
#include "platform/object_names.h"
#include "platform/win32/common_controls.h"
#include "platform/win32/system_library.h"
#include "platform/win32/wide.h"
#include "platform/win32/win_clipboard_access.h"
#include "platform/win32/win_file_store.h"
#include "platform/win32/win_system_error.h"
#include "settings/default_language.h"
#include "settings/shared_settings.h"
#include "settings/win32/companion_context.h"

namespace vbr {
namespace {

constexpr int kExitDone = 0;
constexpr int kExitNoWindow = 1;

// What goes wrong is told to the user where it happens.
class NoLog : public Log {
  public:
    bool IsLogOn() const override { return false; }
    void Write(std::u16string_view) override {}
    void WriteBare(std::u16string_view) override {}
    void SetLogSection(std::u16string_view) override {}
};

bool HandOver(const EditorRequest& request) {
    const HWND other = EditorWindow::FindOther();
    DWORD process = 0;
    GetWindowThreadProcessId(other, &process);
    AllowSetForegroundWindow(process);
    return other && PostMessageW(other, RegisterWindowMessageW(Wide(kMessageEditorRequest.data())),
                                 BitsOf(request), 0);
}

std::optional<SystemError> Recycle(const std::filesystem::path& path) {
    // The list of names ends in a second zero.
    std::u16string from = path.u16string() + u'\0';
    SHFILEOPSTRUCTW operation{};
    operation.wFunc = FO_DELETE;
    operation.pFrom = Wide(from);
    operation.fFlags =
        FOF_ALLOWUNDO | FOF_NOCONFIRMATION | FOF_SILENT | FOF_NOERRORUI | FOF_WANTNUKEWARNING;
    const int error = SHFileOperationW(&operation);
    if (error == 0 && !operation.fAnyOperationsAborted) {
        return std::nullopt;
    }
    return SystemErrorOf(error != 0 ? static_cast<DWORD>(error) : DWORD{ERROR_CANCELLED});
}

}  // namespace

int RunEditor(std::u16string_view cmdLine) {
    const EditorRequest request = ReadEditorArguments(cmdLine);
    if (HandOver(request)) {
        return kExitDone;
    }
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    UseCommonControls(ICC_TREEVIEW_CLASSES | ICC_HOTKEY_CLASS | ICC_STANDARD_CLASSES);
    const UniqueLibrary richEdit = LoadSystemLibrary(L"riched20.dll");
    CompanionContext context;
    NoLog log;
    WinFileStore store;
    CommandFiles files(store, log);
    CommandSaver saver(files);
    CVBRCommandTree tree(files, saver, context.Clock(), log);
    PhraseEditor phrases(files, tree, Recycle);
    WinClipboardAccess clipboard(nullptr);
    EditorWindow window(
        {.Phrases = phrases,
         .Texts = context.Texts(),
         .Folder =
             [&context] {
                 return std::filesystem::path(EffectivePhrasesFolder(
                     context.Settings().PhrasesDirectory, context.Locations(), context.Access()));
             },
         .EditSettings =
             [&context](HWND owner) {
                 SettingsDialog dialog(context.Settings(),
                                       LanguageFileNames(context.Locations().ProgramFolder),
                                       context.Texts());
                 return dialog.Run(owner);
             },
         .SelectedText =
             [&context] {
                 return ReadSharedSettings(context.Objects()).value_or(SharedValues()).SelectedText;
             },
         .ClipboardText = [&clipboard] { return ReadUnicodeText(clipboard); },
         .Announce = [&context] { context.Objects().Signal(kEventEditorEnded); }});
    if (!window.Open(request)) {
        return kExitNoWindow;
    }
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (!window.Translate(message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    context.Objects().Signal(kEventEditorEnded);
    CoUninitialize();
    return kExitDone;
}

}  // namespace vbr
