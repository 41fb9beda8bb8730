// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <deque>
#include <filesystem>
#include <mutex>
#include <string>

#include "phrases/command_file.h"

namespace vbr {

// Writes phrase files without making the caller wait. Writes happen one at a time and in order, on
// a thread that lives as long as there is something to write.
class CommandSaver {
  public:
    explicit CommandSaver(CommandFiles& files) : files_(files) {}

    // Waits until everything is written.
    ~CommandSaver() { Flush(); }

    CommandSaver(const CommandSaver&) = delete;
    CommandSaver& operator=(const CommandSaver&) = delete;

    // Takes the record's text at once, so that the record may change or go. Without a thread the
    // write happens here.
    void SaveCommandAsync(const VBRCommand& record);

    // Waits until everything handed over so far is written.
    void Flush();

  private:
    struct Job {
        std::filesystem::path Path;
        std::string Xml;
    };

    void WriteAll();

    CommandFiles& files_;
    std::mutex mutex_;
    std::condition_variable idle_;
    std::deque<Job> jobs_;
    bool busy_ = false;
};

}  // namespace vbr
