// SPDX-License-Identifier: MIT
#include "diagnostics/win32/file_log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

#include "base/text.h"
#include "fakes/fake_clock.h"
#include "fakes/temp_folder.h"
#include "platform/object_names.h"
#include "platform/win32/wide.h"

namespace vbr {
namespace {

using testing::Each;
using testing::ElementsAre;

constexpr std::u16string_view kHead = u"EXE_Agent: [03/04/26 05:06:07] ";

class FileLogTest : public testing::Test {
  protected:
    FileLogTest() { clock_.Local = {2026, 3, 3, 4, 5, 6, 7, 89}; }

    std::u16string Path() const { return (folder_.Path() / "LogReport.txt").u16string(); }

    // What the entries say, in the file's order. Every entry must have its head and its end.
    std::vector<std::u16string> Entries() const {
        const std::string bytes = folder_.Read("LogReport.txt");
        std::u16string_view rest(reinterpret_cast<const char16_t*>(bytes.data()), bytes.size() / 2);
        EXPECT_TRUE(rest.starts_with(u'\uFEFF'));
        rest.remove_prefix(std::min<std::size_t>(rest.size(), 1));
        std::vector<std::u16string> entries;
        while (!rest.empty()) {
            const std::size_t end = rest.find(u"\r\n");
            if (!rest.starts_with(kHead) || end == rest.npos) {
                ADD_FAILURE() << "No entry: " << Utf16ToUtf8(rest.substr(0, 200));
                break;
            }
            entries.emplace_back(rest.substr(kHead.size(), end - kHead.size()));
            rest.remove_prefix(end + 2);
        }
        return entries;
    }

    TempFolder folder_;
    FakeClock clock_;
    FileLog log_{clock_};
};

TEST_F(FileLogTest, AnExistingLogGoesOnWithoutASecondMark) {
    for (int run = 0; run < 2; ++run) {
        ASSERT_TRUE(log_.StartLog(Path()));
        log_.Write(u"Привет");
        log_.Write(u"ends itself\r\n");
        log_.StopLog();
        log_.Write(u"off");
    }
    EXPECT_THAT(Entries(), ElementsAre(u"Привет", u"ends itself", u"Привет", u"ends itself"));
}

TEST_F(FileLogTest, ASecondStartKeepsTheFirstPath) {
    ASSERT_TRUE(log_.StartLog(Path()));
    EXPECT_FALSE(log_.StartLog(Path() + u".other"));
    EXPECT_EQ(log_.Path(), Path());
    wchar_t name[MAX_PATH] = {};
    EXPECT_GT(GlobalGetAtomNameW(log_.Atom(), name, MAX_PATH), 0u);
    EXPECT_EQ(FromWide(name), Path());
    log_.StopLog();
    EXPECT_FALSE(log_.IsLogOn());
    EXPECT_EQ(GlobalFindAtomW(Wide(Path())), 0);
}

TEST_F(FileLogTest, LinesOfManyThreadsArriveWholeAndInEachThreadsOrder) {
    constexpr int kThreads = 8;
    constexpr int kLines = 1250;
    ASSERT_TRUE(log_.StartLog(Path()));
    std::vector<std::thread> threads;
    for (int thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([this, thread] {
            for (int line = 0; line < kLines; ++line) {
                log_.Write(Concat(thread, u" ", line, u" ", std::u16string(50, u'.')));
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    log_.StopLog();

    std::vector<int> next(kThreads, 0);
    for (const std::u16string& entry : Entries()) {
        const auto thread = static_cast<std::size_t>(ParseDecimal(entry));
        ASSERT_LT(thread, next.size());
        ASSERT_EQ(entry, Concat(thread, u" ", next[thread]++, u" ", std::u16string(50, u'.')));
    }
    EXPECT_THAT(next, Each(kLines));
}

TEST_F(FileLogTest, AFileThatAnotherProgramHoldsForAMomentLosesNothing) {
    ASSERT_TRUE(log_.StartLog(Path()));
    log_.Write(u"before");
    log_.StopLog();
    ASSERT_TRUE(log_.StartLog(Path()));
    UniqueHandle held(
        CreateFileW(Wide(Path()), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(IsValid(held));
    log_.Write(u"one");
    log_.Write(u"two");
    Sleep(1000);
    held.reset();
    log_.StopLog();
    EXPECT_THAT(Entries(), ElementsAre(u"before", u"one", u"two"));
}

TEST_F(FileLogTest, AGuardThatNobodyGivesBackCostsOneEntryOnly) {
    ASSERT_TRUE(log_.StartLog(Path()));
    const UniqueHandle guard(OpenEventW(EVENT_MODIFY_STATE, FALSE, Wide(kEventLogGuard.data())));
    ASSERT_TRUE(guard && ResetEvent(guard.get()));
    log_.Write(u"dropped");
    log_.Write(u"written");
    log_.StopLog();
    EXPECT_THAT(Entries(), ElementsAre(u"written"));
}

TEST_F(FileLogTest, APathThatCannotBeWrittenStartsNoLog) {
    EXPECT_FALSE(log_.StartLog(folder_.Path().u16string()));
    log_.Write(u"nowhere");
    EXPECT_FALSE(log_.IsLogOn());
    EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
}

}  // namespace
}  // namespace vbr
