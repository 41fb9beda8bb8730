// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <filesystem>
#include <functional>
#include <string>

#include "editor/phrase_editor.h"
#include "editor/win32/phrase_text_box.h"
#include "editor/win32/phrase_tree_view.h"
#include "platform/strings.h"
#include "platform/win32/dialog_base.h"
#include "settings/editor_arguments.h"

namespace vbr {

// The editor's main window: the tree of phrases, and what the user edits of the one that is
// selected. An edit is saved when another phrase is selected, the user goes to another program, or
// the window closes.
class EditorWindow : public DialogBase {
  public:
    struct Collaborators {
        PhraseEditor& Phrases;
        const Strings& Texts;
        std::function<std::filesystem::path()> Folder;  // of the phrases, as the settings say
        std::function<bool(HWND owner)> EditSettings;   // true when they were changed
        std::function<std::u16string()> SelectedText;   // that the program has handed over
        std::function<std::u16string()> ClipboardText;
        std::function<void()> Announce;  // phrases or settings have changed
    };

    explicit EditorWindow(Collaborators with) : with_(std::move(with)) {}

    // Shows the window; false when it can't be made.
    bool Open(const EditorRequest& request);
    // True for a message that was the window's.
    bool Translate(MSG& message);

    // The window of another process's editor, null when there is none.
    static HWND FindOther();

  protected:
    bool OnInitDialog() override;
    std::optional<INT_PTR> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void Serve(const EditorRequest& request);
    void SetTexts();
    void OnCommand(int id, int code);
    INT_PTR OnNotify(const NMHDR& notice);
    void OnSize(int width, int height);
    void OnClose();

    void LoadTree(const std::filesystem::path& select);
    void OnSelected();
    void ShowForm(const VBRCommand* record);
    void EnableControls();
    PhraseForm ReadForm() const;
    // Saves what the user has changed; the tree shows it after Refill.
    EditResult SaveForm();
    // The same; false when it can't be saved, which the user was told.
    bool SaveAndTell();
    // The same with Refill.
    bool SaveChanges();
    void Refill();
    void OnLeft();
    int Tell(const std::u16string& text, UINT flags) const;
    // Shows what an edit has come to: the tree with the new selection, or the failure.
    bool Finish(const EditResult& result);
    void AddPhrase(const PhraseForm& form);
    // One without a text is none.
    void AddText(const std::u16string& text);
    void AddGroup();
    void Delete();
    void ChooseGroup();
    void InsertMacro();
    void EditSettings();
    void ChangeKind();

    POINT OnScreen(LPARAM point) const;
    void Drop(POINT point);

    Collaborators with_;
    PhraseTreeView tree_;
    PhraseTextBox text_;
    PhraseForm shown_;                 // as it was loaded
    std::filesystem::path shownPath_;  // empty while nothing is shown
    bool isGroupShown_ = false;
    bool isLoading_ = false;
    bool isUnannounced_ = false;
    bool isRefillDue_ = false;
    std::filesystem::path renamedFrom_;  // what was saved last, by its paths before and after
    std::filesystem::path renamedTo_;
    SIZE size_{};      // of the client area that the controls are placed for
    SIZE smallest_{};  // of the window
};

}  // namespace vbr
