// SPDX-License-Identifier: MIT
#include "menu/right_menu_commands.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "fakes/menu_desk.h"
#include "fakes/menu_picture.h"

namespace vbr {
namespace {

class RightMenu : public testing::Test {
  protected:
    std::string journal_;
    bool copies_ = true;
    MenuDesk desk_;
    RightMenuCommands commands_{{desk_.Phrases.Tree, desk_.Handler,
                                 [](const VBRCommand& record) { return record.Cmd; },
                                 [this](bool plain, std::u16string_view text) {
                                     journal_ += (plain ? "plain " : "rich ") + Utf16ToUtf8(text);
                                     return copies_;
                                 },
                                 [this](std::size_t index) {
                                     journal_ += "clip " + std::to_string(index);
                                     return copies_;
                                 },
                                 [this] { journal_ += ", kept"; }, desk_.Phrases.Log}};
};

TEST_F(RightMenu, CopiedTextStaysOnTheClipboardAndThePhraseCountsAsChosen) {
    for (const auto& [type, expected] :
         {std::pair(kDataTypeText, "plain text"), std::pair(kDataTypeRtf, "rich text"),
          std::pair(kDataTypeExec, "plain text")}) {
        desk_.Phrases.Add("a.vellumbridge", u"text", type);
        for (copies_ = true;; copies_ = false) {
            journal_.clear();
            EXPECT_FALSE(commands_.OnRightMenuCommand(0, 1));
            EXPECT_EQ(journal_, copies_ ? expected + std::string(", kept") : expected);
            if (!copies_) {
                break;
            }
        }
    }
    desk_.Ask({});
    EXPECT_TRUE(Picture(desk_.Presenter.Shown).starts_with("1:*"));
}

TEST_F(RightMenu, AHistoryItemIsCopiedByItsPlace) {
    commands_.OnRightMenuCommand(0, 2003);
    EXPECT_EQ(journal_, "clip 3, kept");
    copies_ = false;
    commands_.OnRightMenuCommand(0, 2000);
    EXPECT_EQ(journal_, "clip 3, keptclip 0");
    commands_.OnRightMenuCommand(0, 7);  // neither a phrase nor an item
    EXPECT_EQ(journal_, "clip 3, keptclip 0");
}

TEST_F(RightMenu, OtherCodesCountAsAUseAndUnknownOnesDoNothing) {
    desk_.Phrases.Add("a.vellumbridge", u"text");
    commands_.OnRightMenuCommand(8, 1);
    desk_.Ask({});
    EXPECT_EQ(desk_.Presenter.Shown[0].Info.Number(), 0U);
    commands_.OnRightMenuCommand(7, 1);
    desk_.Ask({});
    EXPECT_EQ(desk_.Presenter.Shown[0].Info.Number(), 1U);
    EXPECT_EQ(journal_, "");
}

}  // namespace
}  // namespace vbr
