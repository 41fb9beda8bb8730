// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

#include "history/history_folder.h"
#include "platform/named_objects.h"
#include "platform/serial_worker.h"

namespace vbr {

// Saves and loads the history without making the caller wait, one job at a time and in order. The
// guard event is reset meanwhile. Its end waits for all jobs; those that find the guard held by
// another program then write nothing.
class HistoryWorker {
  public:
    // All calls come on the worker's thread.
    struct SaveCalls {
        std::function<bool(const CCHItem&)> IsWritten;  // by a save before: it is left out
        std::function<void(const CCHItem&)> OnSaved;    // for each that was written
        std::function<void(bool complete)> OnEnd;       // whether all are on the disk
    };
    using OnLoaded = std::function<void(CCHQueue&)>;

    // Without a guard nobody else is told.
    HistoryWorker(HistoryFolder& folder, std::unique_ptr<NamedEvent> guard)
        : folder_(folder), guard_(std::move(guard)) {}

    // Writes the items.
    void Save(ItemList items, SaveCalls calls);
    // Reads the folder and calls once, when it held anything.
    void Load(OnLoaded onLoaded);

    // Waits until there is nothing to do, for as long as another program holds the guard.
    void Flush() { worker_.Flush(); }
    SerialWorker::BusyFlag Busy() const { return worker_.Busy(); }

    // Writes the items here and now, whoever holds the guard and whatever job hangs.
    void SaveNow(const ItemList& items);

  private:
    // Whether all that had to be written was.
    bool Write(ItemList& items, const SaveCalls& calls);
    // Does the work while nobody else saves or loads.
    void Guarded(const std::function<void()>& work);
    bool WaitForGuard();

    HistoryFolder& folder_;
    std::unique_ptr<NamedEvent> guard_;
    SerialWorker worker_;
};

}  // namespace vbr
