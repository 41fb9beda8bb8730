// SPDX-License-Identifier: MIT
#include "phrases/command_saver.h"

#include <system_error>
#include <thread>
#include <utility>

namespace vbr {

void CommandSaver::SaveCommandAsync(const VBRCommand& record) {
    {
        const std::lock_guard lock(mutex_);
        jobs_.push_back({CommandFileOf(record), CommandToXml(record)});
        if (busy_) {
            return;
        }
        busy_ = true;
    }
    try {
        std::thread([this] { WriteAll(); }).detach();
    } catch (const std::system_error&) {
        WriteAll();
    }
}

void CommandSaver::Flush() {
    std::unique_lock lock(mutex_);
    idle_.wait(lock, [this] { return !busy_; });
}

void CommandSaver::WriteAll() {
    std::unique_lock lock(mutex_);
    while (!jobs_.empty()) {
        const Job job = std::move(jobs_.front());
        jobs_.pop_front();
        lock.unlock();
        files_.WriteCommandText(job.Path, job.Xml);
        lock.lock();
    }
    busy_ = false;
    idle_.notify_all();
}

}  // namespace vbr
