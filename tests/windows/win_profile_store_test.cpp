// SPDX-License-Identifier: MIT
#include "platform/win32/win_profile_store.h"

#include <gtest/gtest.h>
#include <string>

#include "fakes/temp_folder.h"

namespace vbr {
namespace {

class WinProfileStoreTest : public testing::Test {
  protected:
    void Write(const std::string& bytes) { folder_.Write("Settings.ini", bytes); }
    void WriteUtf16(const std::u16string& text) {
        Write({reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)});
    }
    std::optional<std::u16string> Read(std::u16string_view key) const {
        return store_.ReadString(folder_.Path() / "Settings.ini", u"Main", key);
    }

    TempFolder folder_;
    WinProfileStore store_;
};

TEST_F(WinProfileStoreTest, AMissingKeyIsNotAnEmptyValue) {
    EXPECT_EQ(Read(u"Empty"), std::nullopt);
    Write("[Other]\r\nElsewhere=1\r\n[Main]\r\nEmpty=\r\n");
    EXPECT_EQ(Read(u"Empty"), u"");
    EXPECT_EQ(Read(u"Missing"), std::nullopt);
    EXPECT_EQ(Read(u"Elsewhere"), std::nullopt);
}

TEST_F(WinProfileStoreTest, BlanksAroundAValueGoAndQuotesKeepThem) {
    Write(
        "[Main]\r\n  Plain  =   two  words \t\r\nDouble=\"  kept  \"\r\nSingle=' kept '\r\n"
        "Inner=say \"hi\"\r\nOne=\"open\r\n");
    EXPECT_EQ(Read(u"Plain"), u"two  words");
    EXPECT_EQ(Read(u"Double"), u"  kept  ");
    EXPECT_EQ(Read(u"Single"), u" kept ");
    EXPECT_EQ(Read(u"Inner"), u"say \"hi\"");
    EXPECT_EQ(Read(u"One"), u"\"open");
}

TEST_F(WinProfileStoreTest, SectionAndKeyAreFoundInAnyCase) {
    Write("[MAIN]\r\nshowtooltips=1\r\n");
    EXPECT_EQ(Read(u"ShowToolTips"), u"1");
}

TEST_F(WinProfileStoreTest, AUtf16FileWithAMarkKeepsEveryCharacter) {
    WriteUtf16(u"\uFEFF[Main]\r\nPath=C:\\Фразы\\😀 ½\r\n");
    EXPECT_EQ(Read(u"Path"), u"C:\\Фразы\\😀 ½");
}

TEST_F(WinProfileStoreTest, ALongValueIsNotCut) {
    const std::u16string value = std::u16string(299, u'ж') + u'!';
    WriteUtf16(u"\uFEFF[Main]\r\nLong=" + value + u"\r\n");
    EXPECT_EQ(Read(u"Long"), value);
}

}  // namespace
}  // namespace vbr
