// SPDX-License-Identifier: MIT
#include "macros/command_delivery.h"

#include <gtest/gtest.h>

#include "fakes/fake_locale.h"
#include "fakes/fake_system_info.h"
#include "fakes/phrase_tree.h"
#include "fakes/recording_input.h"

namespace vbr {
namespace {

using Events = std::vector<KeyEvent>;

class Delivery : public testing::Test {
  protected:
    DeliverResult Deliver(std::uint32_t id) {
        return delivery_.DeliverCommand(id, 7, {.ClipboardText = u"c", .SelText = u"s"});
    }

    PhraseTree phrases_;
    FakeLocale locale_;
    FakeSystemInfo system_;
    FakeKeyboardLayouts layouts_;
    RecordingInput input_;
    MacroValues values_{phrases_.Clock, locale_, system_};
    MacroEngine engine_{values_, layouts_, locale_, phrases_.Log};
    TextDelivery text_{input_, phrases_.Log};
    ActionRunner runner_{engine_, text_, phrases_.Log};
    CommandDelivery delivery_{phrases_.Tree, engine_, runner_};
};

TEST_F(Delivery, TypesTheExpandedPhraseAndSavesOneMoreUse) {
    phrases_.Clock.Utc = {.Year = 2025, .Month = 3, .Day = 5};
    phrases_.Add("p.vellumbridge", u"%ACTIVATE_KL_EN%%CLIPBOARD_TEXT%%CURSOR_POS%%SELECTED_TEXT%");
    EXPECT_EQ(Deliver(1), DeliverResult::Phrase);
    ASSERT_EQ(input_.Sent.size(), 2U);
    EXPECT_EQ(input_.Sent[0], (Events{{17, 0, 2, 0}}));  // control goes up before
    EXPECT_EQ(input_.Sent[1], PrintEvents(u"cs", 1, input_));
    phrases_.Saver.Flush();
    VBRCommand saved;
    ParseCommand(saved, phrases_.Folder.Read("p.vellumbridge"));
    EXPECT_EQ(saved.UsageCount, 1);
    EXPECT_EQ(saved.DateUsage, phrases_.Clock.Utc);
}

TEST_F(Delivery, AnIdWithoutAPhraseDeliversNothing) {
    phrases_.Add("group/p.vellumbridge", u"text");
    ASSERT_TRUE(phrases_.Tree.FindCommand(1)->IsGroup());
    for (const std::uint32_t id : {0U, 1U, 3U}) {
        EXPECT_EQ(Deliver(id), DeliverResult::Nothing) << id;
    }
    EXPECT_TRUE(input_.Sent.empty());
}

TEST_F(Delivery, APhraseThatTypesNothingIsNotCounted) {
    phrases_.Add("p.vellumbridge", u"{\\rtf1 text}", kDataTypeRtf);
    Deliver(1);
    EXPECT_TRUE(input_.Sent.empty());
    EXPECT_EQ(phrases_.Tree.FindCommand(1)->UsageCount, 0);
}

TEST(PrintEvents, AreUnicodePairsRealKeysAndCursorSteps) {
    const Events expected = {
        {0, 0xD83D, 4, 0}, {0, 0xD83D, 6, 0}, {0, 0xDE42, 4, 0}, {0, 0xDE42, 6, 0},  // a pair
        {13, 113, 0, 400}, {13, 113, 2, 400}, {10, 110, 0, 400}, {10, 110, 2, 400},  // CR LF
        {9, 109, 0, 400},  {9, 109, 2, 400},  {0, u'a', 4, 0},   {0, u'a', 6, 0},    // TAB, a
        {16, 0, 2, 0},                                                               // shift up
        {37, 0, 0, 0},     {37, 0, 2, 0},     {37, 0, 0, 0},     {37, 0, 2, 0}};     // left
    EXPECT_EQ(PrintEvents(u"🙂\r\n\ta", 2, RecordingInput()), expected);
}

}  // namespace
}  // namespace vbr
