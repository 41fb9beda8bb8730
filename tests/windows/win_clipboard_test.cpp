// SPDX-License-Identifier: MIT
#include "platform/win32/win_clipboard.h"

#include "platform/win32/windows.h"

#include <cstring>
#include <future>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string_view>
#include <thread>

namespace vbr {
namespace {

// Leaves exactly these bytes on the clipboard, with no terminator of ours.
bool Put(UINT format, std::string_view bytes) {
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
    std::memcpy(GlobalLock(block), bytes.data(), bytes.size());
    GlobalUnlock(block);
    const bool put =
        OpenClipboard(nullptr) && EmptyClipboard() && SetClipboardData(format, block) != nullptr;
    CloseClipboard();
    return put;
}

std::string_view BytesOf(std::u16string_view text) {
    return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)};
}

TEST(WinClipboardTest, TextEndsAtItsTerminatorAndGoesByEmpty) {
    ASSERT_TRUE(Put(CF_UNICODETEXT, BytesOf({u"Привет 😀\0rest\0", 15})));
    EXPECT_EQ(WinClipboard().Text(), u"Привет 😀");
    EXPECT_EQ(WinClipboard().UnicodeText(), u"Привет 😀");
    EXPECT_TRUE(WinClipboard().Empty());
    EXPECT_EQ(WinClipboard().Text(), u"");
}

TEST(WinClipboardTest, ATextWithoutATerminatorEndsWithItsBlock) {
    ASSERT_TRUE(Put(CF_UNICODETEXT, BytesOf(u"open")));
    // The system may put the missing terminator in the place of the last character.
    EXPECT_THAT(WinClipboard().Text(), testing::AnyOf(u"open", u"ope"));
}

TEST(WinClipboardTest, TextOfAProgramWithoutUnicodeIsRead) {
    ASSERT_TRUE(Put(CF_TEXT, {"plain\0", 6}));
    EXPECT_EQ(WinClipboard().Text(), u"plain");
}

TEST(WinClipboardTest, AHeldClipboardIsLeftAlone) {
    ASSERT_TRUE(Put(CF_UNICODETEXT, BytesOf({u"text\0", 5})));
    std::promise<bool> held;
    std::promise<void> release;
    std::thread holder([&] {
        HWND window = CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                      nullptr, nullptr);
        const bool open = window && OpenClipboard(window);
        held.set_value(open);
        release.get_future().wait();
        if (open) {
            CloseClipboard();
        }
        DestroyWindow(window);
    });
    EXPECT_TRUE(held.get_future().get());
    EXPECT_FALSE(WinClipboard().Empty());
    EXPECT_EQ(WinClipboard().Text(), u"");
    release.set_value();
    holder.join();
    EXPECT_EQ(WinClipboard().Text(), u"text");
}

}  // namespace
}  // namespace vbr
