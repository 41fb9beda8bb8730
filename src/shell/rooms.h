// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "history/history_notices.h"
#include "history/history_queue.h"

namespace vbr {

// What the tray window asks of the parts that it owns, each a room of its own.

// The clipboard history: the spy that listens and the queue of items.
class HistoryRoom {
  public:
    virtual ~HistoryRoom() = default;

    virtual bool IsSpyRunning() const = 0;
    virtual bool StartSpy() = 0;
    virtual bool StopSpy() = 0;
    // When the settings ask for the history: starts the spy, or goes on trying for some minutes.
    virtual void StartSpyWithRetry() = 0;
    // Called with the spy's state when it has lost its subscription.
    virtual void OnSpyStateChanged(std::function<void(bool runs)> call) = 0;
    virtual std::size_t ItemCount() const = 0;
    // The items; there from the program's start to its end.
    virtual CCHQueue& Queue() = 0;
    // The clipboard handler, for code of this process; 0 while there is none.
    virtual std::uintptr_t Handler() const = 0;
    // A notice of the handler's control, with its parameter.
    virtual HistoryReaction OnNotify(std::uint32_t code, std::uint32_t parameter) = 0;
    virtual void Clear() = 0;
    // Writes what is not on disk, when the settings say so.
    virtual void Save() = 0;
    virtual void OnLanguageChanged() = 0;
    // Between these two calls changes of the clipboard are the program's own. Pairs may nest.
    virtual void BeginOwnCopy() = 0;
    virtual void EndOwnCopy() = 0;
    // The same for the next three seconds. Any thread may call.
    virtual void BlockForAWhile() = 0;
};

// Changes of the clipboard are the program's own while this lives.
class OwnCopyScope {
  public:
    explicit OwnCopyScope(HistoryRoom& history) : history_(history) { history_.BeginOwnCopy(); }
    ~OwnCopyScope() { history_.EndOwnCopy(); }
    OwnCopyScope(const OwnCopyScope&) = delete;
    OwnCopyScope& operator=(const OwnCopyScope&) = delete;

  private:
    HistoryRoom& history_;
};

// How the pane comes up.
enum class PaneShowMode { Toggle = 0, Show = 1, BringBack = 2, WithoutFocus = 3 };

// The floating pane over the history.
class PaneRoom {
  public:
    virtual ~PaneRoom() = default;

    virtual bool Exists() const = 0;
    virtual void Show(PaneShowMode mode) = 0;
    virtual void Blink() = 0;
    virtual void Close() = 0;
    // The text of the selected row; nothing when there is none.
    virtual std::optional<std::u16string> SelectedText() const = 0;
};

// State that a run of the editor reports.
enum class EditorState { StartFailed = 0, Started = 1, Closed = 2 };

// The editor, the welcome module and the autostart value.
class CompanionRoom {
  public:
    virtual ~CompanionRoom() = default;

    virtual void StartEditor(bool addFromClipboard, std::u16string_view selectedText) = 0;
    virtual void OnEditorState(EditorState state) = 0;
    virtual void StartWelcome(std::u16string_view arguments) = 0;
    // Enters the program into the autostart at its first run.
    virtual void StartFirstRunAutostart() = 0;
};

// The check for new versions.
class UpdateRoom {
  public:
    virtual ~UpdateRoom() = default;

    virtual void Schedule() = 0;
    virtual void Check() = 0;
    virtual void ShowResult(std::uintptr_t result) = 0;
};

// The tips of the menus.
class TipRoom {
  public:
    virtual ~TipRoom() = default;

    virtual void Create(std::u16string_view defaultText) = 0;
    virtual void OnMenuSelect(std::uint32_t id, std::uint32_t flags, std::uintptr_t menu) = 0;
    virtual void OnEnterIdle(std::uintptr_t reason, std::uintptr_t window) = 0;
    virtual void Hide() = 0;
};

// All rooms of one program.
struct Rooms {
    HistoryRoom& History;
    PaneRoom& Pane;
    CompanionRoom& Companions;
    UpdateRoom& Updates;
    TipRoom& Tips;
};

}  // namespace vbr
