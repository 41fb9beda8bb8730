// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>

#include "history/history_queue.h"
#include "history/history_worker.h"

namespace vbr {

// How saving stands.
struct SaveState {
    bool IsWanted = false;                    // a save was asked for while another was under way
    std::optional<std::uint32_t> RetryAfter;  // in milliseconds, after a save that was not complete
    bool IsFailing = false;                   // and so it was several times in a row
};

// Decides when the history is loaded and saved, sees each save through and takes care of what it
// left undone. Belongs to the queue's thread; its worker goes first.
class HistorySaver {
  public:
    struct Collaborators {
        CCHQueue& Queue;
        HistoryWorker& Worker;
        const bool& IsOn;
        const std::uint32_t& MaxItems;
        // On the worker's thread: have the queue take what was loaded, or note the item that was
        // saved; false when nobody takes it.
        std::function<bool(CCHQueue&)> TellLoaded;
        std::function<bool(const CCHItem&)> TellSaved;
        // On the worker's thread, after a save or a load: has the queue's thread look at State.
        std::function<void()> TellEnded;
    };

    explicit HistorySaver(Collaborators with) : with_(std::move(with)) {}
    HistorySaver(const HistorySaver&) = delete;
    HistorySaver& operator=(const HistorySaver&) = delete;

    // Reads what is stored, once in this object's life.
    void Load();
    // Takes the loaded items into the queue.
    void Merge(CCHQueue& loaded);

    // A save is wanted as soon as IsDue: changes that follow each other are saved at once. Both
    // take the clock's tick count.
    void RequestSave(std::uint32_t tick) { requestTick_ = tick; }
    bool IsDue(std::uint32_t tick) const;

    // Brings the files in line with the queue, and loads what couldn't be loaded before. While a
    // save is under way, another is wanted afterwards.
    void Save();
    // At the end, when nobody would ask again: begins a last save, behind the one under way, when
    // anything is left. Whether it was.
    bool SaveRest();
    // Does the same before it returns, on any thread, while the queue's thread stands still for
    // good. A save under way may hang with it.
    void SaveForHangingThread();

    SaveState State() const;

  private:
    enum class Loading { NotAsked, UnderWay, Failed, Done };

    bool IsAnythingLeft();
    void NoteUntold();
    HistoryWorker::Order TakeOrder();
    void Begin();
    // On the worker's thread.
    void OnSaved(const CCHItem& item);
    void OnEnd(bool complete);
    void NoteOutcome(bool complete);

    Collaborators with_;
    std::uint32_t requestTick_ = 0;
    std::uint32_t clearsAtLoad_ = 0;
    mutable std::mutex mutex_;  // guards what follows
    Loading loading_ = Loading::NotAsked;
    int running_ = 0;     // saves under way
    bool again_ = false;  // another one was asked for meanwhile
    int failures_ = 0;    // in a row, of saves and loads
    ItemList untold_;     // written, but nobody took it
    std::shared_ptr<CCHQueue> untoldLoad_;
};

}  // namespace vbr
