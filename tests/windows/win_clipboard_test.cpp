// SPDX-License-Identifier: MIT
#include "platform/win32/win_clipboard.h"

#include "platform/win32/windows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string_view>

#include "windows/global_memory.h"

namespace vbr {
namespace {

// Leaves exactly these bytes on the clipboard, with no terminator of ours.
bool Put(UINT format, std::string_view bytes) {
    const bool put = OpenClipboard(nullptr) && EmptyClipboard() &&
                     SetClipboardData(format, MemoryOf(bytes)) != nullptr;
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

}  // namespace
}  // namespace vbr
