// SPDX-License-Identifier: MIT
#include "exchange/hook_service.h"

#include <gtest/gtest.h>

#include "fakes/exchange_fixture.h"

namespace vbr {
namespace {

class HookService : public testing::Test, protected ExchangeFixture {
  protected:
    std::optional<std::uint32_t> Install() { return Hooks.InstallDLLService({}); }

    void ExpectFailure(std::uint32_t code, const Journal& calls) {
        Calls.clear();
        EXPECT_EQ(Install(), code);
        EXPECT_EQ(Calls, calls);
        EXPECT_FALSE(Hooks.IsInstalled());
        EXPECT_TRUE(Objects.Owned.empty());
    }

    WPQuery query_;
};

TEST_F(HookService, EachFailureOfInstallHasItsCodeAndLeavesNothingBehind) {
    Library.InstallResult = false;
    Library.ErrorCode = 3;
    ExpectFailure(3, {"load", "install", "unload"});
    Library.InstallResult = std::nullopt;
    ExpectFailure(5, {"load", "install", "unload"});
    Objects.Refused = {u""};
    ExpectFailure(7, {"load", "unload"});
    Library.Loads = false;
    ExpectFailure(4, {"load"});
}

TEST_F(HookService, TheLibraryIsToldTheLogsPathOnlyWhileTheLogIsOn) {
    Library.InstallResult = false;
    Install();
    EXPECT_EQ(Library.LogPath, std::nullopt);
    Hooks.InstallDLLService({.LogPath = u"C:\\log.txt"});
    EXPECT_EQ(Library.LogPath, u"C:\\log.txt");
}

TEST_F(HookService, UninstallWakesAllWindowsBeforeTheLibraryGoes) {
    Install();
    EXPECT_TRUE(Hooks.UninstallDLLService());
    EXPECT_EQ(Calls, (Journal{"load", "install", "uninstall", "broadcast", "unload"}));
    EXPECT_FALSE(Hooks.IsInstalled());
    EXPECT_TRUE(Objects.SetByOwner.contains(u""));
    EXPECT_TRUE(Objects.Owned.empty());
}

TEST_F(HookService, ALibraryThatIsInstalledStaysThroughASecondInstallAndARefusedUninstall) {
    EXPECT_EQ(Install(), std::nullopt);
    EXPECT_EQ(Install(), 2U);
    for (const std::optional<bool> answer : {std::optional(false), std::optional<bool>()}) {
        Library.UninstallResult = answer;
        EXPECT_FALSE(Hooks.UninstallDLLService());
        EXPECT_TRUE(Hooks.IsInstalled());
    }
    EXPECT_EQ(Calls, (Journal{"load", "install", "uninstall", "uninstall"}));
}

TEST_F(HookService, AQueryTellsTheTargetWithOrWithoutASelection) {
    Install();
    Library.Target = 50;
    for (const std::u16string& selected : {std::u16string(), std::u16string(u"selected")}) {
        if (!selected.empty()) {
            LetTargetCopy(selected);
        }
        EXPECT_EQ(Hooks.SendMessageToTargetWindow(0, query_), QueryStart::Local);
        EXPECT_EQ(query_.SelText, selected);
        EXPECT_EQ(query_.StateSelText, selected.empty() ? 1 : 2);
        EXPECT_EQ(query_.TargetWindow, 50U);
        EXPECT_EQ(query_.WindowClassName, u"Page");
        EXPECT_EQ(query_.AppPath, u"program 52");
        EXPECT_EQ(query_.Hkl, 1051U);
    }
}

TEST_F(HookService, OnThePostedRouteTheTargetGetsTheMessageAndTheQueryNamesItAlone) {
    Route.To = &Posted;
    Install();
    Library.Target = 50;
    EXPECT_EQ(Hooks.SendMessageToTargetWindow(1, query_), QueryStart::Posted);
    EXPECT_EQ(Calls.back(), "post 777 with 1 to 50");
    EXPECT_EQ(query_.TargetWindow, 50U);
    EXPECT_EQ(query_.WindowClassName, u"");
    Windows.Posts = false;
    EXPECT_EQ(Hooks.SendMessageToTargetWindow(0, query_), QueryStart::Failed);
    // The library can't be in there to answer.
    Windows.OwnBitness = false;
    Library.Target = 60;
    EXPECT_EQ(Hooks.SendMessageToTargetWindow(0, query_), QueryStart::Local);
}

TEST(QueryRoute, TheSystemChoosesUnlessOneIsForced) {
    EXPECT_EQ(ChooseRoute(true, std::nullopt), RouteKind::Local);
    EXPECT_EQ(ChooseRoute(false, std::nullopt), RouteKind::Posted);
    EXPECT_EQ(ChooseRoute(true, ParseRoute(u"Posted")), RouteKind::Posted);
    EXPECT_EQ(ChooseRoute(false, ParseRoute(u"local")), RouteKind::Local);
    EXPECT_EQ(ParseRoute(u"neither"), std::nullopt);
}

TEST_F(HookService, WithoutATargetTheQueryFailsAndNothingIsCopied) {
    Library.Target = 50;  // of a library that isn't installed
    EXPECT_EQ(Hooks.SendMessageToTargetWindow(0, query_), QueryStart::Failed);
    Install();
    Library.Target = 0;
    EXPECT_EQ(Hooks.SendMessageToTargetWindow(0, query_), QueryStart::Failed);
    EXPECT_TRUE(Input.Sent.empty());
}

}  // namespace
}  // namespace vbr
