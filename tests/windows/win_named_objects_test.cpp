// SPDX-License-Identifier: MIT
#include "platform/win32/win_named_objects.h"

#include <atomic>
#include <gtest/gtest.h>
#include <thread>

#include "platform/win32/wide.h"
#include "windows/access_list.h"

namespace vbr {
namespace {

constexpr std::u16string_view kName = u"Local\\Vellumbridge_Test_Object";

// Only for waits that are over at once when all is well.
constexpr std::uint32_t kPatienceMs = 20'000;

class WinNamedObjectsTest : public testing::Test {
  protected:
    std::unique_ptr<NamedEvent> CreateEvent(EventReset reset,
                                            ObjectAccess access = ObjectAccess::World) {
        return objects_.Create(kName, reset, access);
    }
    static HANDLE HandleOf(const std::unique_ptr<NamedEvent>& event) {
        return static_cast<WinNamedEvent&>(*event).Get();
    }

    WinNamedObjects objects_;
};

TEST_F(WinNamedObjectsTest, AManualEventStaysSetUntilItIsReset) {
    const auto event = CreateEvent(EventReset::Manual);
    ASSERT_TRUE(event);
    EXPECT_EQ(event->Wait(0), WaitResult::TimedOut);
    event->Set();
    EXPECT_EQ(event->Wait(0), WaitResult::Signalled);
    EXPECT_EQ(event->Wait(0), WaitResult::Signalled);
    event->Reset();
    EXPECT_EQ(event->Wait(0), WaitResult::TimedOut);
}

TEST_F(WinNamedObjectsTest, AnAutomaticEventIsUsedUpByOneWait) {
    const auto event = CreateEvent(EventReset::Automatic);
    ASSERT_TRUE(event);
    event->Set();
    EXPECT_EQ(event->Wait(0), WaitResult::Signalled);
    EXPECT_EQ(event->Wait(0), WaitResult::TimedOut);
}

TEST_F(WinNamedObjectsTest, SignalSaysWhetherSomebodyListens) {
    EXPECT_FALSE(objects_.Signal(kName));
    EXPECT_FALSE(objects_.Exists(kName));
    EXPECT_FALSE(objects_.Open(kName));
    auto event = CreateEvent(EventReset::Automatic);
    auto listener = objects_.Open(kName);
    ASSERT_TRUE(listener);
    EXPECT_TRUE(objects_.Exists(kName));
    EXPECT_EQ(listener->Wait(0), WaitResult::TimedOut);
    EXPECT_TRUE(objects_.Signal(kName));
    EXPECT_EQ(listener->Wait(0), WaitResult::Signalled);
    event.reset();
    listener.reset();
    EXPECT_FALSE(objects_.Signal(kName));
}

TEST_F(WinNamedObjectsTest, PulseReleasesAWaiterAndLeavesTheEventReset) {
    EXPECT_FALSE(objects_.Pulse(kName));
    const auto event = CreateEvent(EventReset::Manual);
    std::atomic<bool> ended = false;
    WaitResult result = WaitResult::Failed;
    std::thread waiter([&] {
        result = event->Wait(kPatienceMs);
        ended = true;
    });
    // A pulse before the wait has begun releases nobody, so it takes one or more.
    bool pulsed = true;
    while (!ended) {
        pulsed = objects_.Pulse(kName) && pulsed;
        Sleep(1);
    }
    waiter.join();
    EXPECT_TRUE(pulsed);
    EXPECT_EQ(result, WaitResult::Signalled);
    EXPECT_EQ(event->Wait(0), WaitResult::TimedOut);
}

TEST_F(WinNamedObjectsTest, ANameOfAnotherKindOfObjectGivesNothing) {
    const UniqueHandle mutex(CreateMutexW(nullptr, FALSE, Wide(kName.data())));
    ASSERT_TRUE(mutex);
    EXPECT_FALSE(CreateEvent(EventReset::Manual));
    EXPECT_FALSE(objects_.Open(kName));
    EXPECT_FALSE(objects_.Exists(kName));
    EXPECT_FALSE(objects_.Signal(kName));
    EXPECT_FALSE(objects_.Create(kName, 1024));
}

TEST_F(WinNamedObjectsTest, OnlyAWorldEventIsOpenToEverybody) {
    auto event = CreateEvent(EventReset::Manual, ObjectAccess::World);
    ASSERT_TRUE(event);
    EXPECT_EQ(AccessListOf(HandleOf(event), SE_KERNEL_OBJECT), kOpenToEverybody);
    event.reset();
    event = CreateEvent(EventReset::Manual, ObjectAccess::Default);
    ASSERT_TRUE(event);
    EXPECT_NE(AccessListOf(HandleOf(event), SE_KERNEL_OBJECT), kOpenToEverybody);
}

TEST_F(WinNamedObjectsTest, ASharedBlockIsOpenToEverybodyAsLongAsItIsHeld) {
    const auto open = [] {
        return UniqueHandle(
            OpenFileMappingW(FILE_MAP_WRITE | READ_CONTROL, FALSE, Wide(kName.data())));
    };
    auto block = objects_.Create(kName, 4096);
    ASSERT_TRUE(block);
    UniqueHandle mapping = open();
    ASSERT_TRUE(mapping);
    EXPECT_EQ(AccessListOf(mapping.get(), SE_KERNEL_OBJECT), kOpenToEverybody);
    void* view = MapViewOfFile(mapping.get(), FILE_MAP_WRITE, 0, 0, 4096);
    EXPECT_NE(view, nullptr);
    UnmapViewOfFile(view);
    mapping.reset();
    block.reset();
    EXPECT_FALSE(open());
}

TEST_F(WinNamedObjectsTest, AProtectedEventCannotBeClosedByMistake) {
    auto event = CreateEvent(EventReset::Manual);
    ASSERT_TRUE(event);
    event->ProtectFromClose(true);
    EXPECT_FALSE(CloseHandle(HandleOf(event)));
    event->Set();
    EXPECT_EQ(event->Wait(0), WaitResult::Signalled);
    event->ProtectFromClose(false);
    event.reset();
    EXPECT_FALSE(objects_.Exists(kName));
}

}  // namespace
}  // namespace vbr
