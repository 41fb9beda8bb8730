// SPDX-License-Identifier: MIT
#include "exchange/win32/query_wait_thread.h"

#include <gtest/gtest.h>
#include <utility>

#include "fakes/memory_log.h"
#include "platform/object_names.h"
#include "windows/message_window.h"
#include "windows/pump.h"
#include "windows/real_reader.h"

namespace vbr {
namespace {

constexpr UINT kQuery = WM_APP + 3;
constexpr UINT kError = WM_APP + 18;

// A window on a thread that pumps when the test says so, as the main thread does.
class QueryWait : public testing::Test {
  protected:
    QueryWait() {
        current_ = this;
        SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&QueryWait::Receive));
        area_ = memory_.Create(kAreaInterchange, kAreaInterchangeSize);
        needed_ = events_.Create(kEventDataNeeded, EventReset::Manual, ObjectAccess::Default);
        completed_ = events_.Create(kEventDataCompleted, EventReset::Manual, ObjectAccess::Default);
    }

    // What the hook library does.
    void LayQuery(const std::string& document) {
        // Nothing is sent to a thread that counts as hung, which it does after five seconds without
        // a look for messages. The main thread always looks.
        Pump();
        area_->Write(document);
        needed_->Set();
    }
    bool IsCompleted() { return completed_->Wait(0) == WaitResult::Signalled; }

    WinNamedObjects objects_;
    NamedObjects& events_ = objects_;
    SharedMemory& memory_ = objects_;
    std::unique_ptr<SharedBlock> area_;
    std::unique_ptr<NamedEvent> needed_;
    std::unique_ptr<NamedEvent> completed_;
    std::unique_ptr<NamedEvent> stop_ =
        events_.Create(u"", EventReset::Manual, ObjectAccess::Default);
    MemoryLog log_;
    RealReader reader_{log_};
    std::vector<WPQuery> received_;
    DWORD answerDelay_ = 0;  // of the next answer
    bool answers_ = false;
    MessageWindow owner_;
    HWND window_ = owner_.Get();
    QueryWaitThread thread_{{.NotifyWindow = window_,
                             .QueryMessage = kQuery,
                             .ErrorMessage = kError,
                             .Stop = *stop_,
                             .Memory = memory_,
                             .Selection = reader_.Selection,
                             .Log = log_}};

  private:
    static LRESULT CALLBACK Receive(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message != kQuery) {
            return DefWindowProcW(window, message, wParam, lParam);
        }
        QueryWait& test = *current_;
        Sleep(std::exchange(test.answerDelay_, 0));
        EXPECT_FALSE(test.thread_.Find(wParam + 8, lParam));
        if (const auto exchange = test.thread_.Find(wParam, lParam)) {
            test.received_.push_back(exchange->Query);
            if (test.answers_) {
                exchange->Answer.Items.push_back({.Text = u"item", .CMDID = 5});
            }
        }
        return 1;
    }

    static QueryWait* current_;
};

QueryWait* QueryWait::current_ = nullptr;

TEST_F(QueryWait, QueriesReachTheWindowOneAfterTheOtherAndTheirAnswersTheHookSide) {
    ASSERT_TRUE(thread_.Start(*needed_, *completed_));
    SendMessageW(window_, kQuery, 8, 16);
    EXPECT_TRUE(received_.empty());
    for (std::size_t i = 1; i <= 3; ++i) {
        LayQuery("<WPQuery><HWND>" + std::to_string(i) + "</HWND></WPQuery>");
        ASSERT_TRUE(PumpUntil([&] { return received_.size() == i; }));
        EXPECT_EQ(received_.back().TargetWindow, i);
        EXPECT_EQ(needed_->Wait(0), WaitResult::TimedOut);
    }
    EXPECT_FALSE(IsCompleted());
    answers_ = true;
    LayQuery("<WPQuery/>");
    ASSERT_TRUE(PumpUntil([&] { return IsCompleted(); }));
    const std::string answer = memory_.OpenBlock(kAreaInterchange)->Read().Bytes;
    EXPECT_NE(answer.find("<Command Flags=\"0\" CMDID=\"5\""), std::string::npos) << answer;
}

TEST_F(QueryWait, AWindowThatAnswersTooLateHearsOfTheNextQuery) {
    ASSERT_TRUE(thread_.Start(*needed_, *completed_));
    answerDelay_ = 2500;
    LayQuery("<WPQuery><HWND>1</HWND></WPQuery>");
    ASSERT_TRUE(PumpUntil([&] { return needed_->Wait(0) == WaitResult::TimedOut; }));
    LayQuery("<WPQuery><HWND>2</HWND></WPQuery>");
    ASSERT_TRUE(
        PumpUntil([&] { return !received_.empty() && received_.back().TargetWindow == 2; }));
    EXPECT_FALSE(IsCompleted());
}

}  // namespace
}  // namespace vbr
