// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <atomic>
#include <functional>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

#include "platform/log.h"
#include "platform/serial_worker.h"
#include "platform/win32/handle.h"

namespace vbr {

// Ends the process within five seconds once its end was asked for, should the main thread hang
// where nobody can reach it. Made on the main thread; its own end tells that all went well.
class ForcedEnd {
  public:
    explicit ForcedEnd(Log& log);
    ~ForcedEnd();
    ForcedEnd(const ForcedEnd&) = delete;
    ForcedEnd& operator=(const ForcedEnd&) = delete;

    // Who saves, and what saves the rest for a main thread that hangs, called on another thread.
    void SetSavers(std::vector<SerialWorker::BusyFlag> savers, std::function<void()> saveRest) {
        savers_ = std::move(savers);
        saveRest_ = std::move(saveRest);
    }
    // The savers have everything now. For as long as they write, 20 seconds at most, the process is
    // not ended.
    void NoteHandedOver() { handedOver_ = true; }

    // The time runs from the first call on. Any thread may call, once the savers were set.
    void Begin();

  private:
    void Run();
    void SaveRest();
    bool IsWriting() const;

    Log& log_;
    UniqueHandle mainThread_;
    UniqueHandle ended_;
    UniqueHandle saved_;
    std::vector<SerialWorker::BusyFlag> savers_;
    std::function<void()> saveRest_ = [] {};
    std::atomic<bool> handedOver_ = false;
    std::once_flag begun_;
    std::thread thread_;
};

}  // namespace vbr
