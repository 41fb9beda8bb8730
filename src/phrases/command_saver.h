// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <utility>

#include "phrases/command_file.h"
#include "platform/serial_worker.h"

namespace vbr {

// Writes phrase files without making the caller wait, one at a time and in order. A use that can't
// be counted at the moment is tried again with the next one of its phrase, with Flush, and at last
// with this object's end, which waits until everything is written.
class CommandSaver {
  public:
    // `onOther` is called on the saver's thread after a use whose file turned out to say something
    // else than the record, or to be gone.
    explicit CommandSaver(CommandFiles& files, std::function<void()> onOther = {})
        : files_(files), onOther_(std::move(onOther)) {}
    ~CommandSaver() { RetryUses(); }
    CommandSaver(const CommandSaver&) = delete;
    CommandSaver& operator=(const CommandSaver&) = delete;

    // Takes what the record says at once, so that it may change or go.
    void SaveCommandAsync(const VBRCommand& record);

    // Counts one use of a phrase in its file. The record has counted it already.
    void SaveUsageAsync(const VBRCommand& record);

    // Waits until everything handed over so far is written.
    void Flush();
    SerialWorker::BusyFlag Busy() const { return worker_.Busy(); }

  private:
    void RetryUses();
    void CountUses(const std::filesystem::path& path, const UncountedUses& uses);

    CommandFiles& files_;
    std::function<void()> onOther_;
    std::map<std::filesystem::path, UncountedUses> uncounted_;  // the worker's
    SerialWorker worker_;
};

}  // namespace vbr
