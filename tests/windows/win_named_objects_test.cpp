// SPDX-License-Identifier: MIT
#include "platform/win32/win_named_objects.h"

#include <cstring>
#include <gtest/gtest.h>

#include "platform/win32/wide.h"
#include "windows/access_list.h"

namespace vbr {
namespace {

constexpr std::u16string_view kName = u"Local\\Vellumbridge_Test_Object";

constexpr std::uint32_t kPage = 4096;

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

TEST_F(WinNamedObjectsTest, OnlyAnAutomaticEventIsUsedUpByOneWait) {
    for (const auto& [reset, second] : {std::pair(EventReset::Manual, WaitResult::Signalled),
                                        std::pair(EventReset::Automatic, WaitResult::TimedOut)}) {
        const auto event = CreateEvent(reset);
        ASSERT_TRUE(event);
        EXPECT_EQ(event->Wait(0), WaitResult::TimedOut);
        event->Set();
        EXPECT_EQ(event->Wait(0), WaitResult::Signalled);
        EXPECT_EQ(event->Wait(0), second);
        event->Reset();
        EXPECT_EQ(event->Wait(0), WaitResult::TimedOut);
    }
}

TEST_F(WinNamedObjectsTest, SignalSaysWhetherSomebodyListens) {
    EXPECT_FALSE(objects_.Signal(kName));
    EXPECT_FALSE(objects_.Exists(kName));
    EXPECT_EQ(objects_.WaitFor(kName, 0)->Code, DWORD{ERROR_FILE_NOT_FOUND});
    auto event = CreateEvent(EventReset::Automatic);
    EXPECT_TRUE(objects_.Exists(kName));
    EXPECT_EQ(objects_.WaitFor(kName, 0)->Code, 0U);
    EXPECT_TRUE(objects_.Signal(kName));
    EXPECT_EQ(objects_.WaitFor(kName, 0), std::nullopt);
    EXPECT_TRUE(objects_.Pulse(kName));
    EXPECT_EQ(objects_.WaitFor(kName, 0)->Code, 0U);  // it stays for nobody who comes later
    event.reset();
    EXPECT_FALSE(objects_.Signal(kName));
}

TEST_F(WinNamedObjectsTest, OnlyTheFirstToCreateAnEventMadeIt) {
    auto first = CreateEvent(EventReset::Manual);
    auto second = CreateEvent(EventReset::Manual);
    ASSERT_TRUE(first && second);
    EXPECT_FALSE(first->WasThere());
    EXPECT_TRUE(second->WasThere());
    first.reset();
    second.reset();
    EXPECT_FALSE(CreateEvent(EventReset::Manual)->WasThere());
}

TEST_F(WinNamedObjectsTest, ANameOfAnotherKindOfObjectGivesNothing) {
    const UniqueHandle mutex(CreateMutexW(nullptr, FALSE, Wide(kName.data())));
    ASSERT_TRUE(mutex);
    EXPECT_FALSE(CreateEvent(EventReset::Manual));
    EXPECT_TRUE(objects_.WaitFor(kName, 0));
    EXPECT_FALSE(objects_.Exists(kName));
    EXPECT_FALSE(objects_.Signal(kName));
    EXPECT_FALSE(objects_.Create(kName, 1024));
}

TEST_F(WinNamedObjectsTest, OnlyAWorldEventIsOpenToEverybody) {
    for (const auto access : {ObjectAccess::World, ObjectAccess::Default}) {
        const auto event = CreateEvent(EventReset::Manual, access);
        ASSERT_TRUE(event);
        EXPECT_EQ(AccessListOf(HandleOf(event), SE_KERNEL_OBJECT) == kOpenToEverybody,
                  access == ObjectAccess::World);
    }
}

TEST_F(WinNamedObjectsTest, ASharedBlockIsOpenToEverybodyAsLongAsItIsHeld) {
    const auto open = [] {
        return UniqueHandle(
            OpenFileMappingW(FILE_MAP_WRITE | READ_CONTROL, FALSE, Wide(kName.data())));
    };
    auto block = objects_.Create(kName, kPage);
    ASSERT_TRUE(block);
    UniqueHandle mapping = open();
    ASSERT_TRUE(mapping);
    EXPECT_EQ(AccessListOf(mapping.get(), SE_KERNEL_OBJECT), kOpenToEverybody);
    mapping.reset();
    block.reset();
    EXPECT_FALSE(open());
    EXPECT_FALSE(objects_.OpenBlock(kName));
}

TEST_F(WinNamedObjectsTest, ASharedBlockKeepsATextWithItsZeroByteWithinItsSize) {
    const auto block = objects_.Create(kName, 100);
    ASSERT_TRUE(block);
    const std::string longest(99, 'x');
    EXPECT_TRUE(block->Write(longest));
    EXPECT_FALSE(block->Write(longest + "y"));
    EXPECT_EQ(objects_.OpenBlock(kName)->Read().Bytes, longest);
}

TEST_F(WinNamedObjectsTest, ASharedBlockWithoutAZeroByteIsNotRead) {
    const auto block = objects_.Create(kName, kPage);
    const UniqueHandle mapping(OpenFileMappingW(FILE_MAP_WRITE, FALSE, Wide(kName.data())));
    auto view = MapView<char>(mapping.get(), FILE_MAP_WRITE, 0);
    ASSERT_TRUE(view);
    std::memset(view.get(), 'x', kPage);
    view.reset();
    EXPECT_EQ(objects_.OpenBlock(kName)->Read().State, SharedTextState::NotReadable);
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
