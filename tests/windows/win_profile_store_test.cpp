// SPDX-License-Identifier: MIT
#include "platform/win32/win_profile_store.h"

#include <gtest/gtest.h>
#include <string>

#include "fakes/temp_folder.h"

namespace vbr {
namespace {

TEST(WinProfileStoreTest, ALongValueIsNotCut) {
    const TempFolder folder;
    const std::u16string value = std::u16string(299, u'ж') + u'!';
    const std::u16string text = u"\uFEFF[Main]\r\nLong=" + value + u"\r\n";
    folder.Write("Settings.ini",
                 {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t)});
    EXPECT_EQ(WinProfileStore().ReadString(folder.Path() / "Settings.ini", u"Main", u"Long"),
              value);
}

}  // namespace
}  // namespace vbr
