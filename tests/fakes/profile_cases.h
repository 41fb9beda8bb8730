// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

#include "base/text.h"
#include "fakes/temp_folder.h"
#include "platform/profile_store.h"

// What holds for INI files whoever reads and writes them: the real calls and their stand-in are
// both put through it.
namespace vbr {

inline std::string Utf16Bytes(std::u16string_view text) {
    std::string bytes = "\xFF\xFE";
    for (const char16_t c : text) {
        bytes += static_cast<char>(c & 0xFF);
        bytes += static_cast<char>(c >> 8);
    }
    return bytes;
}

// For a `Store` that reads and writes real files.
template <typename Store>
class ProfileStoreTest : public testing::Test {
  protected:
    std::filesystem::path Path() const { return folder_.Path() / "t.ini"; }
    std::optional<std::u16string> Read() const {
        return store_.ReadString(Path(), u"Settings", u"Key");
    }
    bool Write(std::u16string_view value) {
        return store_.WriteString(Path(), u"Settings", u"Key", value);
    }
    void SetWritable(bool writable) const {
        using std::filesystem::perm_options;
        using std::filesystem::perms;
        std::filesystem::permissions(Path(),
                                     perms::owner_write | perms::group_write | perms::others_write,
                                     writable ? perm_options::add : perm_options::remove);
    }

    Store store_;
    TempFolder folder_;
};

TYPED_TEST_SUITE_P(ProfileStoreTest);

// The value of "Key" in "Settings", by the bytes of the file.
TYPED_TEST_P(ProfileStoreTest, ReadsWhatTheFileSays) {
    using Value = std::optional<std::u16string>;
    const std::pair<std::string, Value> cases[] = {
        {"[SETTINGS]\r\nkEY=v\r\n", u"v"},
        {"[Settings]\nKey=v\n", u"v"},
        {"[Settings]\rKey=v\r", u"v"},
        {"  [Settings]  \r\n  Key \t=  \t v w \t\r\n", u"v w"},
        {"[ Settings ] x\r\nKey=v\r\n", u"v"},
        {"[Settings]\r\nKey=\" v \"\r\n", u" v "},
        {"[Settings]\r\nKey=\"\"v\"\"\r\n", u"\"v\""},
        {"[Settings]\r\nKey=\"v'\r\n", u"\"v'"},
        {"[Settings]\r\nKey=\r\n", u""},
        {"[Settings]\r\nKey=a=b\r\n", u"a=b"},
        {"[Settings]\r\nKey=v ; w\r\n", u"v ; w"},
        {"[Settings]\r\n;Key=1\r\nKey=v\r\n", u"v"},
        {"[Settings]\r\njunk\r\n\r\n[\r\n=\r\nKey=v\r\n", u"v"},
        {"[Settings]\r\nKey=v\r\nKey=2\r\n", u"v"},
        {"[Settings]\r\nKey=v\r\n[B]\r\n[Settings]\r\nKey=2\r\n", u"v"},
        {"[Settings]\r\n" + std::string(10'000, 'x') + "=1\r\nKey=v\r\n", u"v"},
        {Utf16Bytes(u"[Settings]\r\nKey=Фразы\\😀\r\n"), u"Фразы\\😀"},
        {"\xEF\xBB\xBF[Settings]\r\nKey=\xC3\xA9\r\n", u"é"},
        {"", std::nullopt},
        {"Key=v\r\n", std::nullopt},
        {"[Settings\r\nKey=v\r\n", std::nullopt},
        {"[Settings]\r\nKey\r\n", std::nullopt},
        {"[Settings]\r\nKeys=v\r\n[B]\r\nKey=v\r\n", std::nullopt},
        {"[Settings]\r\n[Settings]\r\nKey=v\r\n", std::nullopt}};
    for (const auto& [bytes, value] : cases) {
        this->folder_.Write("t.ini", bytes);
        EXPECT_EQ(this->Read(), value) << bytes;
    }
}

// The bytes of the file before and after "Key" is set to "v".
TYPED_TEST_P(ProfileStoreTest, ChangesOneLineAndKeepsTheRest) {
    const std::pair<std::string, std::string> cases[] = {
        {"", Utf16Bytes(u"[Settings]\r\nKey=v\r\n")},
        {"[Settings]\r\nKey=1\r\nB=2\r\n", "[Settings]\r\nKey=v\r\nB=2\r\n"},
        {"[Settings]\r\nKey=1\r\nKey=2\r\n", "[Settings]\r\nKey=v\r\nKey=2\r\n"},
        {"[Settings]\r\nKey\r\nB=2\r\n", "[Settings]\r\nKey=v\r\nB=2\r\n"},
        {"[Settings]\r\nA=1\r\n[Z]\r\nB=1\r\n", "[Settings]\r\nA=1\r\nKey=v\r\n[Z]\r\nB=1\r\n"},
        {"[Settings]\r\nA=1", "[Settings]\r\nA=1\r\nKey=v\r\n"},
        {"[A]\r\nA=1", "[A]\r\nA=1\r\n[Settings]\r\nKey=v\r\n"},
        {"; a\r\n[Settings]\r\n; b\r\njunk\r\nA=\" 1 \"\r\n; c\r\n[Other]\r\n",
         "; a\r\n[Settings]\r\n; b\r\njunk\r\nA=\" 1 \"\r\n; c\r\nKey=v\r\n[Other]\r\n"},
        {"[Settings]\r\nA=\xE9\r\n", "[Settings]\r\nA=\xE9\r\nKey=v\r\n"},
        {Utf16Bytes(u"[Settings]\r\nA=Фраза\r\n"),
         Utf16Bytes(u"[Settings]\r\nA=Фраза\r\nKey=v\r\n")},
        {"\xEF\xBB\xBF[Settings]\r\nA=\xC3\xA9\r\n",
         "\xEF\xBB\xBF[Settings]\r\nA=\xC3\xA9\r\nKey=v\r\n"}};
    for (const auto& [before, after] : cases) {
        this->folder_.Write("t.ini", before);
        EXPECT_TRUE(this->Write(u"v")) << before;
        EXPECT_EQ(this->folder_.Read("t.ini"), after);
        EXPECT_EQ(this->Read(), u"v") << before;
    }
}

TYPED_TEST_P(ProfileStoreTest, MakesAMissingFile) {
    std::filesystem::remove(this->Path());
    EXPECT_EQ(this->Read(), std::nullopt);
    EXPECT_TRUE(this->Write(u"Фразы"));
    EXPECT_EQ(this->folder_.Read("t.ini"), Utf16Bytes(u"[Settings]\r\nKey=Фразы\r\n"));
}

// Not text, but each byte of it is somebody's.
TYPED_TEST_P(ProfileStoreTest, KeepsGarbageAndWritesBehindIt) {
    const std::string cases[] = {
        std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\xff\xfe\x80[\n]=;", 25),
        std::string(4096, '\0'), std::string("\0", 1)};
    for (const std::string& garbage : cases) {
        this->folder_.Write("t.ini", garbage);
        EXPECT_EQ(this->Read(), std::nullopt);
        EXPECT_TRUE(this->Write(u"v"));
        EXPECT_EQ(this->Read(), u"v");
        EXPECT_TRUE(this->folder_.Read("t.ini").starts_with(garbage));
    }
}

TYPED_TEST_P(ProfileStoreTest, LeavesAHugeFileAlone) {
    constexpr std::uintmax_t kHuge = 20'000'000;
    this->folder_.Write("t.ini", "[Settings]\r\nKey=1\r\n");
    std::filesystem::resize_file(this->Path(), kHuge);
    EXPECT_EQ(this->Read(), std::nullopt);
    EXPECT_FALSE(this->Write(u"v"));
    EXPECT_EQ(std::filesystem::file_size(this->Path()), kHuge);
}

TYPED_TEST_P(ProfileStoreTest, ReadsAReadOnlyFileAndDoesNotWriteIt) {
    const std::string cases[] = {"[Settings]\r\nKey=1\r\n", "\xEF\xBB\xBF[Settings]\r\nKey=1\r\n"};
    for (const std::string& bytes : cases) {
        this->folder_.Write("t.ini", bytes);
        this->SetWritable(false);
        EXPECT_EQ(this->Read(), u"1");
        EXPECT_FALSE(this->Write(u"v"));
        EXPECT_EQ(this->folder_.Read("t.ini"), bytes);
        this->SetWritable(true);
    }
}

TYPED_TEST_P(ProfileStoreTest, LeavesAFolderInItsPlaceAlone) {
    std::filesystem::remove(this->Path());
    this->folder_.Write("t.ini/inner.txt", "x");
    EXPECT_EQ(this->Read(), std::nullopt);
    EXPECT_FALSE(this->Write(u"v"));
    EXPECT_EQ(this->folder_.Read("t.ini/inner.txt"), "x");
}

// Such a value would become lines of its own.
TYPED_TEST_P(ProfileStoreTest, RefusesAValueOfSeveralLines) {
    using namespace std::string_view_literals;
    const std::string before = "[Settings]\r\nKey=1\r\n";
    this->folder_.Write("t.ini", before);
    for (const std::u16string_view value : {u"v\r\n[B]"sv, u"v\nB=1"sv, u"v\r"sv, u"v\0w"sv}) {
        EXPECT_FALSE(this->Write(value));
        EXPECT_EQ(this->folder_.Read("t.ini"), before);
    }
}

REGISTER_TYPED_TEST_SUITE_P(ProfileStoreTest, ReadsWhatTheFileSays, ChangesOneLineAndKeepsTheRest,
                            MakesAMissingFile, KeepsGarbageAndWritesBehindIt, LeavesAHugeFileAlone,
                            ReadsAReadOnlyFileAndDoesNotWriteIt, LeavesAFolderInItsPlaceAlone,
                            RefusesAValueOfSeveralLines);

}  // namespace vbr
