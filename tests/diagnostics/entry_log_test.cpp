// SPDX-License-Identifier: MIT
#include "diagnostics/entry_log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "diagnostics/window_entries.h"
#include "fakes/fake_clock.h"

namespace vbr {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Keeps what would be written.
class EntryList : public EntryLog {
  public:
    explicit EntryList(const Clock& clock) : EntryLog(clock) {}

    bool On = true;
    std::vector<std::u16string> Entries;

    bool IsLogOn() const override { return On; }

  private:
    void QueueEntry(std::u16string entry) override { Entries.push_back(std::move(entry)); }
};

class EntryLogTest : public testing::Test {
  protected:
    EntryLogTest() { clock_.Local = {2026, 3, 3, 4, 5, 6, 7, 89}; }

    FakeClock clock_;
    EntryList log_{clock_};
};

TEST_F(EntryLogTest, AnEntryIsHeadedByItsSectionAsLongAsItIsSet) {
    log_.Write(u"before");
    {
        const LogSection section(log_, u"Menu");
        log_.LogError(u"within");
    }
    log_.LogWithPrefix(u"text", u"Pane");
    EXPECT_THAT(log_.Entries, ElementsAre(u"EXE_Agent: [03/04/26 05:06:07] before\r\n",
                                          u"Menu: [03/04/26 05:06:07] ERROR: within\r\n",
                                          u"EXE_Agent: [03/04/26 05:06:07] Pane: text\r\n"));
}

TEST_F(EntryLogTest, ATextTooLongForALineGoesAloneAndALongSectionNameIsCut) {
    const std::size_t head = std::u16string_view(u"EXE_Agent03/04/2605:06:07").size();
    const std::u16string fits(102'387 - head, u'x');
    log_.Write(fits);
    log_.Write(fits + u"x");
    const std::u16string name(199, u'n');
    log_.SetLogSection(name + u"nn");
    log_.Write(u"text");
    EXPECT_THAT(log_.Entries,
                ElementsAre(u"EXE_Agent: [03/04/26 05:06:07] " + fits + u"\r\n", fits + u"x\r\n",
                            name + u": [03/04/26 05:06:07] text\r\n"));
}

TEST_F(EntryLogTest, QueuedLinesKeepTheirDatesAndAreWrittenAgainAtEachFlush) {
    log_.FlushLogLines();
    EXPECT_THAT(log_.Entries, IsEmpty());
    log_.QueueLogLine(u"one");
    clock_.Local.Second = 8;
    log_.SetLogSection(u"Menu");
    log_.QueueLogLine(u"two");
    clock_.Local.Second = 9;
    log_.FlushLogLines();
    log_.FlushLogLines();
    const std::u16string both =
        u"EXE_Agent [03/04/26 05:06:07] one\nEXE_Agent [03/04/26 05:06:08] two\r\n";
    EXPECT_THAT(log_.Entries, ElementsAre(both, both));
}

TEST_F(EntryLogTest, WindowsAreDescribedWithAndWithoutAHead) {
    LogWindow(log_, u"", {66, true, u"Notepad"});
    LogWindow(log_, u"target", {0xFFFFFFFF, false, u""});
    EXPECT_THAT(log_.Entries, ElementsAre(u"IsWindow HWND=66 ? 1; CLASSNAME: [Notepad]\r\n",
                                          u"target: IsWindow HWND=-1 ? 0; CLASSNAME: []\r\n"));
}

TEST_F(EntryLogTest, NothingIsWrittenOrKeptWhileTheLogIsOff) {
    log_.On = false;
    log_.Write(u"text");
    log_.LogError(u"text");
    log_.QueueLogLine(u"text");
    LogWindow(log_, u"head", {66, true, u"Notepad"});
    log_.On = true;
    log_.FlushLogLines();
    EXPECT_THAT(log_.Entries, IsEmpty());
}

}  // namespace
}  // namespace vbr
