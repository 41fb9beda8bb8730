// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "history/history_folder.h"
#include "platform/named_objects.h"
#include "platform/serial_worker.h"

namespace vbr {

// Nobody saves for longer than the patience: a guard that is held so long is another program's.
// The worker goes on without it, and says so once, on its thread; the folder's own lock still
// keeps two apart.
struct GuardPatience {
    std::chrono::milliseconds Time = std::chrono::seconds(30);
    std::function<void()> OnGivenUp = [] {};
};

// Saves and loads the history without making the caller wait, one job at a time and in order. The
// guard event is reset meanwhile. Its end waits for all jobs; those that find the guard held by
// another program then write nothing.
class HistoryWorker {
  public:
    // What the files are to be brought in line with.
    struct Order {
        FileChanges Changes;
        ItemList Items;
    };
    // All calls come on the worker's thread.
    struct SaveCalls {
        std::function<void(const CCHItem&)> OnSaved;  // for each whose files are complete
        std::function<void(bool complete)> OnEnd;     // whether nothing is left to do
    };
    struct LoadCalls {
        std::function<void(std::shared_ptr<CCHQueue>)> OnLoaded;  // when there was anything
        std::function<void(bool read)> OnEnd;                     // false: it could not be read now
    };

    // Without a guard nobody else is told.
    HistoryWorker(HistoryFolder& folder, std::unique_ptr<NamedEvent> guard,
                  GuardPatience patience = {})
        : folder_(folder), guard_(std::move(guard)), patience_(std::move(patience)) {}

    void Save(Order order, SaveCalls calls);
    void Load(LoadCalls calls);

    // Waits until there is nothing to do, for as long as another program holds the guard.
    void Flush() { worker_.Flush(); }
    SerialWorker::BusyFlag Busy() const { return worker_.Busy(); }

    // Does it here and now, whoever holds the guard and whatever job hangs.
    void SaveNow(const Order& order);

  private:
    // Does the work while nobody else saves or loads.
    void Guarded(const std::function<void()>& work);
    bool WaitForGuard();

    HistoryFolder& folder_;
    std::unique_ptr<NamedEvent> guard_;
    GuardPatience patience_;
    SerialWorker worker_;
};

}  // namespace vbr
