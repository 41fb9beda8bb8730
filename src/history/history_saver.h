// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <mutex>
#include <set>
#include <string>
#include <utility>

#include "history/history_queue.h"
#include "history/history_worker.h"

namespace vbr {

// Decides when the history is saved, sees each save through and takes care of what it left undone.
// Belongs to the queue's thread; its worker goes first.
class HistorySaver {
  public:
    struct Collaborators {
        CCHQueue& Queue;
        HistoryWorker& Worker;
        const bool& IsOn;
        // On the worker's thread: has the queue note the item, false when nobody takes it.
        std::function<bool(const CCHItem&)> TellSaved;
        // On the worker's thread: has the queue's thread call Save.
        std::function<void()> AskForSave;
    };

    explicit HistorySaver(Collaborators with) : with_(std::move(with)) {}
    HistorySaver(const HistorySaver&) = delete;
    HistorySaver& operator=(const HistorySaver&) = delete;

    // Something is unsaved: SaveRest writes it, unless a save comes before.
    void NoteChange();
    // The same, with a save as soon as IsDue: changes that follow each other are saved at once.
    // Both take the clock's tick count.
    void RequestSave(std::uint32_t tick);
    bool IsDue(std::uint32_t tick) const;

    // Writes what is unsaved. While a save is under way, another follows it.
    void Save();
    // At the end of the keeping, when nobody would ask again: begins a last save if one is needed,
    // behind the one under way.
    void SaveRest();
    // Writes what is unsaved before it returns, on any thread, while the queue's thread stands
    // still for good. A save under way may hang with it.
    void SaveForHangingThread();

  private:
    void Begin();
    // On the worker's thread.
    bool IsWritten(const CCHItem& item);
    void OnSaved(const CCHItem& item);
    void OnEnd(bool complete);

    Collaborators with_;
    std::uint32_t requestTick_ = 0;
    std::mutex mutex_;      // guards what follows
    int running_ = 0;       // saves under way
    bool pending_ = false;  // something is unsaved
    bool again_ = false;    // another save was asked for meanwhile
    ItemList untold_;       // written, but nobody took it
    // What the saves under way have written, by key and revision: the later ones may hold it too.
    std::set<std::pair<std::u16string, std::uint32_t>> written_;
};

}  // namespace vbr
