// SPDX-License-Identifier: MIT
#include "exchange/win32/query_wait_thread.h"

#include <system_error>

#include "platform/object_names.h"

namespace vbr {
namespace {

constexpr UINT kDeliverTimeoutMs = 2000;
constexpr std::uint32_t kQuietMs = 1;

HANDLE HandleOf(NamedEvent& event) {
    return static_cast<WinNamedEvent&>(event).Get();
}

WinNamedEvent UnnamedEvent() {
    return WinNamedEvent(UniqueHandle(CreateEventW(nullptr, TRUE, FALSE, nullptr)));
}

// The thread that is waited for may be sending a message to this one.
void WaitAndAnswer(HANDLE event) {
    while (MsgWaitForMultipleObjects(1, &event, FALSE, INFINITE, QS_SENDMESSAGE) ==
           WAIT_OBJECT_0 + 1) {
        MSG ignored;
        PeekMessageW(&ignored, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
    }
}

}  // namespace

QueryWaitThread::QueryWaitThread(const Collaborators& with)
    : with_(with),
      area_(with.Memory, kAreaInterchange, with.Log),
      end_(UnnamedEvent()),
      ended_(UnnamedEvent()) {}

bool QueryWaitThread::Start(NamedEvent& dataNeeded, NamedEvent& dataCompleted) {
    Stop();
    dataNeeded_ = &dataNeeded;
    dataCompleted_ = &dataCompleted;
    ending_ = false;
    end_.Reset();
    ended_.Reset();
    try {
        thread_ = std::thread([this] {
            CWaitQuery(*this, area_, with_.Selection, *this, with_.Log).ThreadProc_WaitQuery();
            busy_ = false;
            ended_.Set();
        });
    } catch (const std::system_error&) {
        with_.Log.LogError(u"Cannot start thread for waiting of query CWaitQuery::StartWaitThread");
        return false;
    }
    return true;
}

void QueryWaitThread::Stop() {
    if (!thread_.joinable()) {
        return;
    }
    end_.Set();
    {
        const std::lock_guard guard(mutex_);
        ending_ = true;
        pending_.reset();
    }
    WaitAndAnswer(ended_.Get());
    thread_.join();
    area_.LetGo();
}

std::shared_ptr<QueryExchange> QueryWaitThread::Find(WPARAM query, LPARAM answer) {
    const std::lock_guard guard(mutex_);
    const bool isPending = pending_ && query == reinterpret_cast<WPARAM>(&pending_->Query) &&
                           answer == reinterpret_cast<LPARAM>(&pending_->Answer);
    return isPending ? pending_ : nullptr;
}

QueryWake QueryWaitThread::Wait(std::uint32_t& errorCode) {
    busy_ = false;
    const HANDLE handles[] = {HandleOf(*dataNeeded_), HandleOf(with_.Stop), end_.Get()};
    switch (WaitForMultipleObjects(3, handles, FALSE, INFINITE)) {
        case WAIT_OBJECT_0:
            busy_ = true;
            return QueryWake::DataNeeded;
        case WAIT_OBJECT_0 + 1:
        case WAIT_OBJECT_0 + 2:
            return QueryWake::Stop;
        default:
            errorCode = GetLastError();
            return QueryWake::Failed;
    }
}

bool QueryWaitThread::IsDataNeededQuiet() {
    return dataNeeded_->Wait(kQuietMs) == WaitResult::TimedOut;
}

bool QueryWaitThread::Deliver(const std::shared_ptr<QueryExchange>& exchange) {
    {
        const std::lock_guard guard(mutex_);
        if (ending_) {
            return false;
        }
        pending_ = exchange;
    }
    DWORD_PTR result = 0;
    const LRESULT answered = SendMessageTimeoutW(
        with_.NotifyWindow, with_.QueryMessage, reinterpret_cast<WPARAM>(&exchange->Query),
        reinterpret_cast<LPARAM>(&exchange->Answer), SMTO_BLOCK | SMTO_ABORTIFHUNG,
        kDeliverTimeoutMs, &result);
    const std::lock_guard guard(mutex_);
    pending_.reset();
    return answered != 0 && result == 1;
}

void QueryWaitThread::ReportWaitError() {
    PostMessageW(with_.NotifyWindow, with_.ErrorMessage, 0, 0);
}

}  // namespace vbr
