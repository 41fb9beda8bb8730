// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "exchange/hook_service.h"
#include "exchange/input_desktop.h"
#include "exchange/selected_text.h"
#include "exchange/wait_query.h"
#include "macros/command_delivery.h"
#include "menu/phrase_menu_handler.h"
#include "menu/queue_history.h"
#include "menu/right_menu_commands.h"
#include "platform/clipboard_access.h"
#include "platform/clipboard_snapshot.h"
#include "platform/clock.h"
#include "platform/desktop_windows.h"
#include "platform/event_sounds.h"
#include "platform/log.h"
#include "platform/strings.h"
#include "settings/settings.h"
#include "shell/double_press.h"
#include "shell/hotkey_service.h"
#include "shell/tray_display.h"

namespace vbr {

// The program's main job, from the hot key over the query and the menu to the choice carried out.
// One query at a time: while one is under way no other begins. Belongs to the main thread.
class QueryFlow {
  public:
    struct Collaborators {
        const CVBRSettings& Settings;
        const Strings& Texts;
        vbr::Clock& Clock;
        vbr::Desktops& Desktops;
        DesktopWindows& Windows;
        ClipboardAccess& Clipboard;
        SelectedTextReader& Selection;
        CClipboardSnapshot& Snapshot;  // of the selection's reader
        // Has the history take what was copied just before.
        std::function<void()> CaptureFirst;
        HotkeyService& Hotkey;
        CVBRDLLService& Hooks;
        IDataNeededHander_MenuSelf& Menu;
        QueueHistory& History;
        CommandDelivery& Delivery;
        RightMenuCommands& RightMenu;
        TrayView& View;
        TrayDisplay& Display;
        EventSounds& Sounds;
        vbr::Log& Log;
        std::function<void(int command)> RunCommand;  // of the tray menu
        // Starts the editor, with the selection as a new phrase if there is one; it tells that
        // window, 0 for the program's own.
        std::function<void(WindowHandle asker, std::u16string selection)> StartEditor;
    };

    explicit QueryFlow(Collaborators with) : with_(std::move(with)) {}

    // The user asks for the menu: by the hot key, by a mouse gesture, from the history's pane.
    void OnHotKey();
    void OnMouseEvent();
    void OnMenuWanted() { Begin(false); }

    // A target has answered, or another program asks for the menu by itself. Null for one that
    // nobody waits for any more. Shows the menu and carries the choice out before it returns.
    void OnQueryReady(const std::shared_ptr<QueryExchange>& exchange);

    // The target that is asked makes the choice itself: the number of an item of the menu that this
    // query would show. False, and nothing happens, while no query waits for that target.
    bool OnTargetsChoice(std::int32_t number, WindowHandle target);
    void OnAnswerOverdue();

    // A choice that another program sends: the number of a phrase or a history item, or a result of
    // an extra command. Without a target it is for the window in front.
    void OnOutsideChoice(std::int32_t number, WindowHandle target);

    // A command of the right-click menu on an item of the open menu, or on the item of that number.
    // True when the menu is to close.
    bool OnRightMenuCommand(RightMenuCode code, const MenuSubject& item);
    bool OnOutsideRightMenuCommand(std::uint32_t code, std::uint32_t number);

    // From the press until the choice was carried out, or the target's time to answer is over.
    bool IsUnderWay() const;
    // Runs the work now, or, while a menu or a prompt is open, when the choice was carried out.
    void WhenIdle(std::function<void()> work);

    // The program ends: no query begins any more, the one under way delivers nothing more, and what
    // waits for its end is dropped.
    void Stop();
    bool IsStopped() const { return stopped_; }

  private:
    struct Query {
        std::uint32_t Number = 0;
        WindowHandle Target = 0;
        std::uint32_t PostedAt = 0;  // ticks
        bool Awaited = false;        // the target has yet to answer
    };

    void Begin(bool fromHotkey);
    void Ask(bool fromHotkey);
    void Serve(const WPQuery& query, WPAnswer& answer);
    void Await(WindowHandle target);
    void EndAwaiting();
    // `asker` is the window of another program that wants to know of what it has asked for.
    void CarryOut(const MenuChoice& choice, WindowHandle target, WindowHandle asker = 0);
    std::optional<UndeliveredText> Deliver(const MenuChoice& choice, WindowHandle target);
    std::u16string ClipboardText();
    void RunExtraCommand(std::int32_t result, WindowHandle asker);
    void End();

    Collaborators with_;
    DoublePress doublePress_;
    std::optional<Query> query_;  // the one under way
    std::uint32_t lastNumber_ = 0;
    std::vector<std::function<void()>> waiting_;
    bool stopped_ = false;
};

}  // namespace vbr
