// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <thread>

#include "exchange/wait_query.h"
#include "platform/win32/win_named_objects.h"

namespace vbr {

// The thread that waits for queries. Start and stop it on the main thread.
class QueryWaitThread : public QueryWaiter, private QuerySignals, private QueryReceiver {
  public:
    struct Collaborators {
        HWND NotifyWindow;
        UINT QueryMessage;  // sent with the addresses of query and answer; 1 when handled
        UINT ErrorMessage;  // posted when the wait has failed
        NamedEvent& Stop;   // the program's
        SharedMemory& Memory;
        SelectedTextReader& Selection;
        vbr::Log& Log;
    };

    explicit QueryWaitThread(const Collaborators& with);
    ~QueryWaitThread() override { Stop(); }

    bool Start(NamedEvent& dataNeeded, NamedEvent& dataCompleted) override;
    // Returns when the thread has ended. Messages that other threads send are answered meanwhile.
    void Stop() override;
    bool IsBusy() const override { return busy_; }

    // The exchange that the addresses of a query message belong to, null when it is no longer
    // waited for. Anybody can send such a message.
    std::shared_ptr<QueryExchange> Find(WPARAM query, LPARAM answer);

  private:
    QueryWake Wait(std::uint32_t& errorCode) override;
    void ResetDataNeeded() override { dataNeeded_->Reset(); }
    bool IsDataNeededQuiet() override;
    void SetDataCompleted() override { dataCompleted_->Set(); }
    void ResetDataCompleted() override { dataCompleted_->Reset(); }
    bool Deliver(const std::shared_ptr<QueryExchange>& exchange) override;
    void ReportWaitError() override;

    Collaborators with_;
    InterchangeArea area_;
    WinNamedEvent end_;
    WinNamedEvent ended_;
    NamedEvent* dataNeeded_ = nullptr;
    NamedEvent* dataCompleted_ = nullptr;
    std::thread thread_;
    std::atomic<bool> busy_ = false;
    std::mutex mutex_;  // of the two below
    std::shared_ptr<QueryExchange> pending_;
    bool ending_ = false;
};

}  // namespace vbr
