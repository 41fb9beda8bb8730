// SPDX-License-Identifier: MIT
#include "exchange/win32/hook_module.h"

#include <gtest/gtest.h>
#include <thread>

#include "windows/hook_fixture.h"

namespace vbr {
namespace {

class HookModuleTest : public testing::Test {
  protected:
    ~HookModuleTest() override { library_.Uninstall(); }

    // The error code that an install ends with; nothing when the result belies it.
    std::optional<std::uint32_t> Install(WPInstallParams params) {
        const std::optional<bool> installed = library_.Install(params);
        const bool consistent = installed == (params.ErrorCode == kHookSuccess);
        return consistent ? std::optional(params.ErrorCode) : std::nullopt;
    }

    HookModule library_{(ProgramFolder() / "Vellumbridge.dll").u16string()};
};

TEST_F(HookModuleTest, InstallWantsTheNamesOfAllObjects) {
    ASSERT_TRUE(library_.Load());
    for (const auto name : {&WPInstallParams::DataNeededName, &WPInstallParams::DataCompletedName,
                            &WPInstallParams::InterchangeAreaName}) {
        for (const char16_t* missing : {static_cast<const char16_t*>(nullptr), u""}) {
            WPInstallParams params = HookFixture::Params(QueryRouteChoice::OfSystem);
            params.*name = missing;
            EXPECT_EQ(Install(params), kHookBadNames);
        }
    }
    EXPECT_EQ(Install(HookFixture::Params(QueryRouteChoice::OfSystem)), kHookSuccess);
}

TEST_F(HookModuleTest, TheLibraryIsInstalledOnceAtATime) {
    ASSERT_TRUE(library_.Load());
    EXPECT_EQ(Install(HookFixture::Params(QueryRouteChoice::OfSystem)), kHookSuccess);
    EXPECT_EQ(Install(HookFixture::Params(QueryRouteChoice::OfSystem)), kHookAlreadyInstalled);
    EXPECT_EQ(library_.Uninstall(), true);
    EXPECT_EQ(Install(HookFixture::Params(QueryRouteChoice::OfSystem)), kHookSuccess);
}

TEST_F(HookModuleTest, WithoutAWindowInFrontThereIsNoTarget) {
    ASSERT_TRUE(library_.Load());
    ASSERT_EQ(Install(HookFixture::Params(QueryRouteChoice::OfSystem)), kHookSuccess);
    const HDESK desktop =
        CreateDesktopW(L"Vellumbridge_Test", nullptr, nullptr, 0, GENERIC_ALL, nullptr);
    ASSERT_TRUE(desktop);
    // On a desktop of its own nothing else comes to the front.
    std::thread([&] {
        EXPECT_TRUE(SetThreadDesktop(desktop));
        EXPECT_FALSE(GetForegroundWindow());
        EXPECT_EQ(library_.GetTargetWindow(), 0u);
    }).join();
    CloseDesktop(desktop);
}

TEST_F(HookModuleTest, AMissingOrForeignLibraryInstallsNothing) {
    HookModule missing(u"C:\\no such folder\\Vellumbridge.dll");
    HookModule foreign(u"version.dll");
    EXPECT_FALSE(missing.Load());
    EXPECT_TRUE(foreign.Load());
    for (HookModule* library : {&missing, &foreign}) {
        WPInstallParams params = HookFixture::Params(QueryRouteChoice::OfSystem);
        EXPECT_EQ(library->Install(params), std::nullopt);
        EXPECT_EQ(library->Uninstall(), std::nullopt);
        EXPECT_EQ(library->GetTargetWindow(), 0u);
    }
}

}  // namespace
}  // namespace vbr
