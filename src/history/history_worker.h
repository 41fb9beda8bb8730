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
    // On the worker's thread.
    using OnSaved = std::function<void(const CCHItem&)>;
    using OnLoaded = std::function<void(CCHQueue&)>;
    using OnEnd = std::function<void()>;

    // Without a guard nobody else is told.
    HistoryWorker(HistoryFolder& folder, std::unique_ptr<NamedEvent> guard)
        : folder_(folder), guard_(std::move(guard)) {}

    // Writes the items and calls for each that was written, and at the end.
    void Save(ItemList items, OnSaved onSaved, OnEnd onEnd);
    // Reads the folder and calls once, when it held anything.
    void Load(OnLoaded onLoaded);

  private:
    // Does the work while nobody else saves or loads.
    void Guarded(const std::function<void()>& work);
    bool WaitForGuard();

    HistoryFolder& folder_;
    std::unique_ptr<NamedEvent> guard_;
    SerialWorker worker_;
};

}  // namespace vbr
