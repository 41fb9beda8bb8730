// SPDX-License-Identifier: MIT
#include "base/profile_text.h"

#include <array>

#include "fakes/native_profile_store.h"
#include "fakes/profile_cases.h"

namespace vbr {
namespace {

std::string AfterSet(std::string_view before, std::u16string_view value = u"v") {
    ProfileText text(before);
    EXPECT_TRUE(text.Set(u"S", u"Key", value));
    return text.Bytes();
}

// What the platform's calls may tidy up stays here.
TEST(ProfileText, AChangeKeepsBlankLinesSpellingAndLineEnds) {
    const std::pair<std::string, std::string> cases[] = {
        {"[S]\n\n  kEy  = 1 \n\n\n[B]\n", "[S]\n\n  kEy  =v\n\n\n[B]\n"},
        {"[S]\nA=1\n\n\n[B]\n", "[S]\nA=1\nKey=v\n\n\n[B]\n"},
        {"\n[ s ]\nA = 1", "\n[ s ]\nA = 1\nKey=v\n"},
        {"[A]\rA=1\r\r", "[A]\rA=1\r\r[S]\rKey=v\r"},
        {"\r\n; only this", "\r\n; only this\r\n[S]\r\nKey=v\r\n"}};
    for (const auto& [before, after] : cases) {
        EXPECT_EQ(AfterSet(before), after);
    }
}

TEST(ProfileText, EachEncodingIsReadAndKept) {
    const std::string utf16Odd("\xFF\xFE[\0S\0]\0\n\0K\0e\0y\0=\0\x16\x04\n\0!", 21);
    const std::tuple<std::string, std::u16string, std::string> cases[] = {
        {"[S]\nKey=\xC3\xA9\n", u"é", "[S]\nKey=\xD0\x96\n"},
        {"[S]\nKey=\xE9\nB=\xC3\xA9\n", u"é", "[S]\nKey=?\nB=\xC3\xA9\n"},
        {"\xEF\xBB\xBF[S]\nKey=\xE9\n", u"é", "\xEF\xBB\xBF[S]\nKey=?\n"},
        {"\xEF\xBB\xBF[S]\nKey=\xC3\xA9\n", u"é", "\xEF\xBB\xBF[S]\nKey=\xD0\x96\n"},
        {utf16Odd, u"Ж", utf16Odd}};
    for (const auto& [before, value, after] : cases) {
        EXPECT_EQ(ProfileText(before).Get(u"S", u"Key"), value) << before;
        EXPECT_EQ(ProfileText(before).Bytes(), before);
        EXPECT_EQ(AfterSet(before, u"Ж"), after);
    }
}

TEST(ProfileText, NamesMatchInAnyCaseBeyondLatinToo) {
    EXPECT_EQ(ProfileText("[Жук]\nКлюч=v\n").Get(u"жУК", u"кЛЮЧ"), u"v");
}

// A new language file starts with a mark and one zero character.
TEST(ProfileText, AZeroCharacterInFrontIsKept) {
    const std::string begun("\xFF\xFE\0\0", 4);
    const std::string bytes = AfterSet(begun);
    EXPECT_TRUE(bytes.starts_with(begun));
    EXPECT_EQ(ProfileText(bytes).Get(u"S", u"Key"), u"v");
}

TEST(ProfileText, DeleteTakesOneLineAndSaysWhetherItWasThere) {
    const std::pair<std::string, std::string> cases[] = {
        {"[S]\nA=1\nkey = 1\nB=2\n", "[S]\nA=1\nB=2\n"},
        {"[S]\nA=1\nKey=1", "[S]\nA=1\n"},
        {"[S]\nKey=1\nKey=2\n", "[S]\nKey=2\n"}};
    for (const auto& [before, after] : cases) {
        ProfileText text(before);
        EXPECT_TRUE(text.Delete(u"S", u"Key"));
        EXPECT_EQ(text.Bytes(), after);
    }
    const std::string other = "[B]\nKey=1\n[S]\n;Key=1\n";
    ProfileText text(other);
    EXPECT_FALSE(text.Delete(u"S", u"Key"));
    EXPECT_EQ(text.Bytes(), other);
}

INSTANTIATE_TYPED_TEST_SUITE_P(Native, ProfileStoreTest, NativeProfileStore);

TEST(ProfileStruct, BytesAreHexadecimalWithTheirSum) {
    const std::array<std::uint8_t, 4> bytes = {0x01, 0xAB, 0xFF, 0x00};
    EXPECT_EQ(EncodeProfileStruct(bytes), u"01ABFF00AB");
    std::array<std::uint8_t, 4> read{};
    EXPECT_TRUE(DecodeProfileStruct(u"01abff00AB", read));
    EXPECT_EQ(read, bytes);
}

TEST(ProfileStruct, AnythingElseIsRefusedAndChangesNothing) {
    for (const std::u16string_view text : {u"", u"01ABFF00AC", u"01ABFFAB", u"01ABFF0000AB",
                                           u"01ABFG00AB", u"01ABFF00A", u"01ABFF00ЖЖ"}) {
        std::array<std::uint8_t, 4> read = {1, 2, 3, 4};
        EXPECT_FALSE(DecodeProfileStruct(text, read));
        EXPECT_EQ(read, (std::array<std::uint8_t, 4>{1, 2, 3, 4}));
    }
}

}  // namespace
}  // namespace vbr
