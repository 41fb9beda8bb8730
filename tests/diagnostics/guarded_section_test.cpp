// SPDX-License-Identifier: MIT
#include "diagnostics/guarded_section.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>

#include "fakes/guard_fixture.h"

namespace vbr {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t kAccessViolation = 0xC0000005;

class GuardedSectionsTest : public testing::Test, protected GuardFixture {
  protected:
    FakeAlertBox::Box ErrorBox(const std::u16string& text) {
        return {text, u"Vellumbridge", 0x40010};
    }
};

TEST_F(GuardedSectionsTest, WorkWithoutAFaultGivesItsResultAndNoReport) {
    EXPECT_EQ(*Sections.Run(kFaultMakeMenu, std::unique_ptr<int>(),
                            [] { return std::make_unique<int>(7); }),
              7);
    EXPECT_THAT(Log.Lines, IsEmpty());
    EXPECT_THAT(Box.Shown, IsEmpty());
}

TEST_F(GuardedSectionsTest, AFaultIsReportedWithItsNameAndGivesTheSectionsResult) {
    const int result =
        Sections.Run(kFaultMeasureItem, 5, []() -> int { throw Fault{kAccessViolation}; });
    EXPECT_EQ(result, 5);
    const std::u16string report =
        u"ERROR: Exception in IDataNeededHander_MenuSelf::OnMenuMEASUREITEM "
        u"GetExceptionCode=3221225477 status=[EXCEPTION_ACCESS_VIOLATION]";
    EXPECT_THAT(Log.Lines, ElementsAre(u"ERROR: " + report));
    EXPECT_THAT(Box.Shown, ElementsAre(ErrorBox(report)));
}

TEST_F(GuardedSectionsTest, AFaultWithABoxOfItsOwnStaysOutOfTheLog) {
    const bool result = Sections.RunWithBox(kFaultShellNotify, false,
                                            []() -> bool { throw Fault{kAccessViolation}; });
    EXPECT_FALSE(result);
    EXPECT_THAT(Log.Lines, IsEmpty());
    EXPECT_THAT(Box.Shown, ElementsAre(ErrorBox(u"Exception in Shell_Notify")));
}

TEST_F(GuardedSectionsTest, ASilentFaultGivesTheFallbackAlone) {
    const auto textOf = [this](bool faulty) {
        return RunSilently(Catcher, std::u16string(u"none"), [faulty] {
            return faulty ? throw Fault{kAccessViolation} : std::u16string(u"text");
        });
    };
    EXPECT_EQ(textOf(false), u"text");
    EXPECT_EQ(textOf(true), u"none");
}

}  // namespace
}  // namespace vbr
