// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <memory>
#include <string>

#include "platform/win32/window_base.h"
#include "shell/tray_view.h"
#include "shell/win32/program.h"
#include "shell/win32/tray_icon.h"
#include "shell/win32/tray_menu_popup.h"

namespace vbr {

// The hidden main window, at which threads and outside programs address their requests, and the
// hands of what the program shows. The program lives from this window's creation on.
class CVBRTrayWnd : public WindowBase, private TrayView {
  public:
    explicit CVBRTrayWnd(const ProcessContext& process);
    ~CVBRTrayWnd() override;

    bool Create();

    // The end was asked for. The window is still there: a menu or a dialog may be open above it.
    bool IsEnding() const { return isEnding_; }

  protected:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    // Its life, the system's notices, and the icon.
    LRESULT OnCreate(WPARAM, LPARAM);
    LRESULT OnDestroy(WPARAM, LPARAM);
    LRESULT OnTimer(WPARAM id, LPARAM);
    LRESULT OnClose(WPARAM, LPARAM);
    LRESULT OnEndSession(WPARAM wParam, LPARAM lParam);
    LRESULT OnSessionChange(WPARAM reason, LPARAM sessionId);
    LRESULT OnHotKey(WPARAM id, LPARAM);
    LRESULT OnCommand(WPARAM command, LPARAM);
    LRESULT OnNotify(WPARAM control, LPARAM header);
    LRESULT OnTrayNotify(WPARAM, LPARAM notice);
    LRESULT OnInitMenuPopup(WPARAM menu, LPARAM);
    LRESULT OnMenuSelect(WPARAM item, LPARAM menu);
    LRESULT OnEnterIdle(WPARAM reason, LPARAM window);

    // Requests of threads and outside programs.
    LRESULT OnInstallTrayIcon(WPARAM, LPARAM);
    LRESULT OnQueryReady(WPARAM query, LPARAM answer);
    LRESULT OnWaitError(WPARAM, LPARAM);
    LRESULT OnEditorState(WPARAM state, LPARAM);
    LRESULT OnEditorEnded(WPARAM, LPARAM);
    LRESULT OnGetPaneTitle(WPARAM, LPARAM buffer);
    LRESULT OnInstallSpy(WPARAM, LPARAM);
    LRESULT OnAllowWaitAgent(WPARAM, LPARAM);
    LRESULT OnCommandFromSelf(WPARAM choice, LPARAM target);
    LRESULT OnCopyData(WPARAM, LPARAM block);
    LRESULT OnGetQueue(WPARAM, LPARAM);
    LRESULT OnHideTip(WPARAM, LPARAM);
    LRESULT OnShowMenuRequest(WPARAM, LPARAM);
    LRESULT OnRightMenuCommand(WPARAM code, LPARAM item);
    LRESULT OnLanguageChanged(WPARAM, LPARAM);
    LRESULT OnPhraseChanged(WPARAM, LPARAM);
    LRESULT OnHistorySaveEnded(WPARAM, LPARAM);
    LRESULT OnAddMessage(LPARAM text);
    bool CopyToSender(LPARAM buffer, const std::u16string& text);

    bool ChangeIcon(TrayIconMode mode, const TrayIconContent& content) override;
    void DeleteIcon() override { icon_.Delete(Handle()); }
    void ShowBlinkImage(bool second) override { icon_.ShowBlinkImage(Handle(), second); }
    bool ShowBalloon(std::u16string_view text, std::uint32_t milliseconds) override;
    bool StartTimer(std::uintptr_t id, std::uint32_t milliseconds) override;
    void ShowMessage(std::u16string_view text, MessageIcon icon, bool onTop) override;
    void AdmitChoice(bool on) override;
    void ShowTrayMenu(TrayMenuPlace place) override;
    void PostCommand(int command) override;
    void Close() override;

    ProcessContext process_;
    UINT instanceSignal_;
    UINT taskbarCreated_;
    UINT addMessage_;
    UINT mouseEvent_;
    TrayIcon icon_;
    bool isEnding_ = false;
    // Made with the window.
    std::unique_ptr<Program> program_;
    std::unique_ptr<TrayMenuPopup> menu_;
};

}  // namespace vbr
