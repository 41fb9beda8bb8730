// SPDX-License-Identifier: MIT
#include "base/file_time.h"

#include <gtest/gtest.h>

namespace vbr {
namespace {

TEST(FileTime, DatesAndCountsAreOneToOne) {
    const std::pair<FileTicks, SystemTime> cases[] = {
        {0, {1601, 1, 1, 1, 0, 0, 0, 0}},
        {130'014'720'000'000'000, {2013, 1, 2, 1, 0, 0, 0, 0}},
        {116'444'735'999'990'000, {1969, 12, 3, 31, 23, 59, 59, 999}},
        {133'536'384'000'000'000, {2024, 2, 4, 29, 0, 0, 0, 0}}};
    for (const auto& [ticks, time] : cases) {
        EXPECT_EQ(SystemTimeOf(ticks), time) << ticks;
        EXPECT_EQ(FileTicksOf(time), ticks);
    }
}

TEST(FileTime, CountsAreDatesToTheMillisecondUpToSixtyThreeBits) {
    EXPECT_EQ(SystemTimeOf(19'999), SystemTimeOf(10'000));
    EXPECT_NE(SystemTimeOf(20'000), SystemTimeOf(10'000));
    EXPECT_EQ(SystemTimeOf(0x7FFF'FFFF'FFFF'FFFF)->Year, 30828);
    EXPECT_EQ(SystemTimeOf(0x8000'0000'0000'0000), std::nullopt);
}

TEST(FileTime, ADateThatDoesNotExistHasNoCount) {
    for (const SystemTime& time :
         {SystemTime{}, SystemTime{2023, 2, 0, 29, 0, 0, 0, 0},
          SystemTime{1600, 1, 0, 1, 0, 0, 0, 0}, SystemTime{30'828, 1, 0, 1, 0, 0, 0, 0},
          SystemTime{2023, 13, 0, 1, 0, 0, 0, 0}, SystemTime{2023, 1, 0, 1, 24, 0, 0, 0},
          SystemTime{2023, 1, 0, 1, 0, 60, 0, 0}}) {
        EXPECT_EQ(FileTicksOf(time), std::nullopt) << time.Year << "-" << time.Month;
    }
}

}  // namespace
}  // namespace vbr
