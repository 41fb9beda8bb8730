// SPDX-License-Identifier: MIT
#include "settings/shared_settings.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "fakes/fake_shared_memory.h"

namespace vbr {
namespace {

TEST(SharedSettingsText, IsWhatTheEditorExpects) {
    EXPECT_EQ(SharedSettingsText(13, 3, false, u""),
              "<?xml version=\"1.0\" ?>\r\n"
              "<VellumbridgeSettings HotKey_Key=\"13\" HotKey_Mod=\"3\" Double=\"0\" />\r\n");
    EXPECT_EQ(
        SharedSettingsText(112, 8, true, u"<é> & \"ж\"&#x41;\r\n"),
        "<?xml version=\"1.0\" ?>\r\n"
        "<VellumbridgeSettings HotKey_Key=\"112\" HotKey_Mod=\"8\" Double=\"1\">\r\n"
        "    <SelText>&lt;\u00E9&gt; &amp; &quot;\u0436&quot;&amp;#x41;&#x0D;&#x0A;</SelText>\r\n"
        "</VellumbridgeSettings>\r\n");
}

class SharedSettingsTest : public testing::Test {
  protected:
    bool Write(std::u16string_view selected) {
        return shared_.WriteSharedSettings(13, 3, false, selected);
    }
    std::string& Area() { return memory_.Blocks[u"Local\\$VELLUMBRIDGE_SETTING_AREA$"]; }

    FakeSharedMemory memory_;
    SharedSettings shared_{memory_};
};

TEST_F(SharedSettingsTest, TheLastTextStandsInOneAreaHoweverOftenItIsWritten) {
    memory_.Fails = true;
    EXPECT_FALSE(Write(u""));
    memory_.Fails = false;
    for (const std::u16string_view text : {u"", u"some text", u""}) {
        EXPECT_TRUE(Write(text));
        EXPECT_EQ(Area(), SharedSettingsText(13, 3, false, text));
    }
    EXPECT_EQ(memory_.Made, 1);
}

TEST_F(SharedSettingsTest, ATextOf1023BytesFitsAndALongerOneKeepsTheOld) {
    const std::size_t frame = SharedSettingsText(13, 3, false, u"x").size() - 1;
    const std::u16string longest(1023 - frame, u'x');
    EXPECT_TRUE(Write(longest));
    const std::string before = Area();
    EXPECT_EQ(before.size(), 1023u);
    const std::u16string escaped(longest.size() / 5 + 1, u'&');
    const std::u16string twoBytes(longest.size() / 2 + 1, u'ж');
    for (const std::u16string& text :
         {longest + u"y", escaped, twoBytes, std::u16string(100'000, u'z')}) {
        EXPECT_FALSE(Write(text));
        EXPECT_EQ(Area(), before);
    }
}

}  // namespace
}  // namespace vbr
