// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>

#include "exchange/answer.h"
#include "exchange/interchange_area.h"
#include "exchange/query.h"
#include "exchange/selected_text.h"
#include "platform/log.h"
#include "platform/named_objects.h"

namespace vbr {

// Why a wait for a query ended.
enum class QueryWake { DataNeeded, Stop, Failed };

// The events that the wait thread and the hook library share.
class QuerySignals {
  public:
    virtual ~QuerySignals() = default;

    // Blocks. A query wins over a stop. `errorCode` is set on a failure.
    virtual QueryWake Wait(std::uint32_t& errorCode) = 0;

    virtual void ResetDataNeeded() = 0;
    // Whether the event can be waited for and stays unset for a moment.
    virtual bool IsDataNeededQuiet() = 0;

    virtual void SetDataCompleted() = 0;
    virtual void ResetDataCompleted() = 0;
};

// A query on its way to the main thread, with the answer that may come back.
struct QueryExchange {
    WPQuery Query;
    WPAnswer Answer;
};

// The main thread, as the wait thread sees it.
class QueryReceiver {
  public:
    virtual ~QueryReceiver() = default;

    // Hands the query over. True when it was handled within the time the main thread is given.
    // The exchange may be in use there when the time was over.
    virtual bool Deliver(const std::shared_ptr<QueryExchange>& exchange) = 0;
    // The wait has ended with an error.
    virtual void ReportWaitError() = 0;
};

// Runs the wait for queries, one at a time.
class QueryWaiter {
  public:
    virtual ~QueryWaiter() = default;

    // Begins to wait, anew when it already does or has failed. False when it can't. The events stay
    // until Stop has returned.
    virtual bool Start(NamedEvent& dataNeeded, NamedEvent& dataCompleted) = 0;
    virtual void Stop() = 0;
    // A query has come and is not yet handed over.
    virtual bool IsBusy() const = 0;
};

// Waits for the queries that the hook library lays into the interchange area, and hands them on.
// Runs on a thread of its own.
class CWaitQuery {
  public:
    CWaitQuery(QuerySignals& signals, InterchangeArea& area, SelectedTextReader& selection,
               QueryReceiver& receiver, Log& log)
        : signals_(signals), area_(area), selection_(selection), receiver_(receiver), log_(log) {}

    // Works until it is stopped (0) or the wait fails for the second time (1), which it reports.
    std::uint32_t ThreadProc_WaitQuery();

  private:
    void ProcessQuery();
    void LogQuery(const WPQuery& query) const;

    QuerySignals& signals_;
    InterchangeArea& area_;
    SelectedTextReader& selection_;
    QueryReceiver& receiver_;
    Log& log_;
};

}  // namespace vbr
