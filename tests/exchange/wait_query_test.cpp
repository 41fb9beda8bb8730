// SPDX-License-Identifier: MIT
#include "exchange/wait_query.h"

#include <deque>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/text.h"
#include "fakes/exchange_fixture.h"
#include "fakes/fake_shared_memory.h"

namespace vbr {
namespace {

using testing::Contains;
using testing::HasSubstr;

constexpr std::u16string_view kArea = u"area";

class WaitQuery : public testing::Test,
                  protected ExchangeFixture,
                  private QuerySignals,
                  private QueryReceiver {
  protected:
    static constexpr QueryWake kQuery = QueryWake::DataNeeded;
    static constexpr QueryWake kStop = QueryWake::Stop;
    static constexpr QueryWake kFailure = QueryWake::Failed;

    std::uint32_t Run(std::deque<QueryWake> wakes) {
        wakes_ = std::move(wakes);
        Calls.clear();
        InterchangeArea area(memory_, kArea, Log);
        return CWaitQuery(*this, area, Selection, *this, Log).ThreadProc_WaitQuery();
    }
    void Lay(const std::string& document) { memory_.Blocks[std::u16string(kArea)] = document; }

    FakeSharedMemory memory_;
    bool quiet_ = true;
    bool handled_ = true;
    bool answers_ = false;
    WPQuery received_;

  private:
    QueryWake Wait(std::uint32_t& errorCode) override {
        const QueryWake wake = wakes_.at(0);
        wakes_.pop_front();
        errorCode = wake == kFailure ? 6 : errorCode;
        return wake;
    }
    void ResetDataNeeded() override { Calls.push_back("needed off"); }
    bool IsDataNeededQuiet() override { return quiet_; }
    void SetDataCompleted() override { Calls.push_back("completed on"); }
    void ResetDataCompleted() override { Calls.push_back("completed off"); }
    bool Deliver(const std::shared_ptr<QueryExchange>& exchange) override {
        Calls.push_back("deliver");
        received_ = exchange->Query;
        if (answers_) {
            exchange->Answer.Items.push_back({.Text = u"x", .CMDID = 1});
        }
        return handled_;
    }
    void ReportWaitError() override { Calls.push_back("report"); }

    std::deque<QueryWake> wakes_;
};

TEST_F(WaitQuery, AReadableQueryIsDeliveredAndWithoutItemsNothingIsAnswered) {
    Lay("<WPQuery><AppPath>a.exe</AppPath><SelText StateSelText='0'/></WPQuery>");
    EXPECT_EQ(Run({kQuery, kStop}), 0U);
    EXPECT_EQ(Calls, (Journal{"needed off", "deliver", "completed off"}));
    EXPECT_EQ(received_.AppPath, u"a.exe");
    EXPECT_THAT(Log.Lines, Contains(u"Received query:\r\n\tExe: a.exe\r\n\tClassName: \r\n\tHKL: 0"
                                    u"\r\n\tSelText: []\r\n\tSelText State: [No has selected "
                                    u"text]"));
}

TEST_F(WaitQuery, AnAnswerWithItemsReplacesTheQueryInTheArea) {
    Lay("<WPQuery/>");
    answers_ = true;
    Run({kQuery, kStop});
    EXPECT_EQ(Calls, (Journal{"needed off", "deliver", "completed off", "completed on"}));
    EXPECT_THAT(memory_.Blocks[std::u16string(kArea)], HasSubstr("<WPAnswer "));
    memory_.Fails = true;
    Lay("<WPQuery/>");
    Run({kQuery, kStop});
    EXPECT_EQ(Calls.back(), "completed off");
    EXPECT_THAT(Log.Lines, Contains(u"Cannot write answer to MMF\n"));
}

TEST_F(WaitQuery, AWindowThatDoesNotAnswerInTimeLeavesTheEventsAlone) {
    Lay("<WPQuery/>");
    handled_ = false;
    Run({kQuery, kStop});
    EXPECT_EQ(Calls, (Journal{"needed off", "deliver"}));
}

TEST_F(WaitQuery, AnAreaThatCannotBeReadLetsTheHookSideGoOn) {
    const auto isNotRead = [this] {
        Run({kQuery, kStop});
        EXPECT_EQ(Calls, (Journal{"needed off", "completed on"}));
    };
    isNotRead();
    Lay("<WPQuery/>");
    for (const auto state : {SharedTextState::NotMapped, SharedTextState::NotReadable}) {
        memory_.ReadState = state;
        isNotRead();
    }
    memory_.ReadState = SharedTextState::Read;
    Lay("");
    isNotRead();
    EXPECT_THAT(Log.Lines, Contains(u"cannot open file"));
    EXPECT_THAT(Log.Lines, Contains(u"cannot MapViewOfFile"));
    EXPECT_THAT(Log.Lines, Contains(u"Cannot read query from MMF"));
}

TEST_F(WaitQuery, OnlyATextThatTheHookSideFailedToGetIsExtractedHere) {
    const struct {
        std::string State;
        std::string Text;
        std::u16string Copied;
        std::u16string SelText;
        std::int32_t StateSelText;
    } cases[] = {{"1", "", u"copied", u"copied", 2},
                 {"1", "", u"", u"", 1},
                 {"1", "given", u"copied", u"given", 1},
                 {"0", "", u"copied", u"", 0},
                 {"-1", "", u"copied", u"", -1}};
    for (const auto& c : cases) {
        Lay("<WPQuery><HWND>9</HWND><SelText StateSelText='" + c.State + "'>" + c.Text +
            "</SelText></WPQuery>");
        Clipboard.Copy({});
        LetTargetCopy(c.Copied);
        Run({kQuery, kStop});
        EXPECT_EQ(received_.SelText, c.SelText);
        EXPECT_EQ(received_.StateSelText, c.StateSelText);
    }
}

TEST_F(WaitQuery, TheFirstFailureIsRecoveredFromAndTheSecondEndsTheThread) {
    Lay("<WPQuery/>");
    EXPECT_EQ(Run({kFailure, kQuery, kStop}), 0U);
    EXPECT_EQ(Calls, (Journal{"needed off", "needed off", "deliver", "completed off"}));
    EXPECT_EQ(Log.Lines.back(), u"Exit from ThreadProc_WaitQuery [ret_value=0, error_code=0]");
    EXPECT_EQ(Run({kFailure, kFailure}), 1U);
    EXPECT_EQ(Calls, (Journal{"needed off", "report"}));
    EXPECT_EQ(Log.Lines.back(), u"Exit from ThreadProc_WaitQuery [ret_value=1, error_code=6]");
    quiet_ = false;
    EXPECT_EQ(Run({kFailure}), 1U);
    EXPECT_EQ(Calls, (Journal{"needed off", "report"}));
}

}  // namespace
}  // namespace vbr
