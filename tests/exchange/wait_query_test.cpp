// SPDX-License-Identifier: MIT
#include "exchange/wait_query.h"

#include <deque>
#include <gtest/gtest.h>

#include "base/text.h"
#include "fakes/exchange_fixture.h"
#include "fakes/fake_shared_memory.h"

namespace vbr {
namespace {

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
        InterchangeArea area(memory_, kArea, Macros.Log);
        return CWaitQuery(*this, area, Reader, *this, Macros.Log).ThreadProc_WaitQuery();
    }
    void Lay(const std::string& document) { memory_.Blocks[std::u16string(kArea)] = document; }

    FakeSharedMemory memory_;
    bool quiet_ = true;
    bool handled_ = true;
    bool answers_ = false;
    WPQuery received_;

  private:
    QueryWake Wait(std::uint32_t&) override {
        const QueryWake wake = wakes_.at(0);
        wakes_.pop_front();
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

TEST_F(WaitQuery, AReadableQueryIsDeliveredAndItemsReplaceItInTheArea) {
    Lay("<WPQuery><AppPath>a.exe</AppPath></WPQuery>");
    EXPECT_EQ(Run({kQuery, kStop}), 0U);
    EXPECT_EQ(Calls, (Journal{"needed off", "deliver", "completed off"}));
    EXPECT_EQ(received_.AppPath, u"a.exe");
    answers_ = true;
    Run({kQuery, kStop});
    EXPECT_EQ(Calls, (Journal{"needed off", "deliver", "completed off", "completed on"}));
    EXPECT_NE(memory_.Blocks[std::u16string(kArea)].find("<WPAnswer "), std::string::npos);
    memory_.Fails = true;
    Lay("<WPQuery/>");
    Run({kQuery, kStop});
    EXPECT_EQ(Calls.back(), "completed off");
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
    memory_.ReadState = SharedTextState::NotReadable;
    isNotRead();
    memory_.ReadState = SharedTextState::Read;
    Lay("");
    isNotRead();
}

TEST_F(WaitQuery, OnlyATextThatTheHookSideFailedToGetIsExtractedHere) {
    const std::tuple<std::string, std::string, std::u16string, std::u16string, int> cases[] = {
        {"1", "", u"copied", u"copied", 2},
        {"1", "", u"", u"", 1},
        {"1", "given", u"copied", u"given", 1},
        {"0", "", u"copied", u"", 0},
        {"-1", "", u"copied", u"", -1}};
    for (const auto& [state, text, copied, selText, stateSelText] : cases) {
        Lay("<WPQuery><HWND>9</HWND><SelText StateSelText='" + state + "'>" + text +
            "</SelText></WPQuery>");
        Clipboard.Copy({});
        LetTargetCopy(copied.empty() ? std::vector<ClipboardBlock>()
                                     : std::vector{FakeClipboardAccess::Text(copied)});
        Run({kQuery, kStop});
        EXPECT_EQ(received_.SelText, selText);
        EXPECT_EQ(received_.StateSelText, stateSelText);
    }
}

TEST_F(WaitQuery, TheFirstFailureIsRecoveredFromAndTheSecondEndsTheThread) {
    Lay("<WPQuery/>");
    EXPECT_EQ(Run({kFailure, kQuery, kStop}), 0U);
    EXPECT_EQ(Calls, (Journal{"needed off", "needed off", "deliver", "completed off"}));
    EXPECT_EQ(Run({kFailure, kFailure}), 1U);
    EXPECT_EQ(Calls, (Journal{"needed off", "report"}));
    quiet_ = false;
    EXPECT_EQ(Run({kFailure}), 1U);
    EXPECT_EQ(Calls, (Journal{"needed off", "report"}));
}

}  // namespace
}  // namespace vbr
