// SPDX-License-Identifier: MIT
#pragma once

#include "phrases/command_file.h"
#include "platform/serial_worker.h"

namespace vbr {

// Writes phrase files without making the caller wait, one at a time and in order. Its end waits
// until everything is written.
class CommandSaver {
  public:
    explicit CommandSaver(CommandFiles& files) : files_(files) {}

    // Takes the record's text at once, so that the record may change or go.
    void SaveCommandAsync(const VBRCommand& record);

    // Waits until everything handed over so far is written.
    void Flush() { worker_.Flush(); }

  private:
    CommandFiles& files_;
    SerialWorker worker_;
};

}  // namespace vbr
