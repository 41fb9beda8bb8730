// SPDX-License-Identifier: MIT
#include "welcome/welcome_guide.h"

#include <gtest/gtest.h>

#include "resources/resource_ids.h"
#include "settings/embedded_strings.h"

namespace vbr {
namespace {

TEST(WelcomeGuide, TellsWhatIsInTheWayAndThatAPhraseHasArrived) {
    const EmbeddedStrings texts;
    const std::tuple<WelcomeFacts, int, bool> cases[] = {
        {{false, true, u"x"}, kStrWelcomeNotRunning, true},
        {{true, false, u"x"}, kStrWelcomeOff, false},
        {{true, true, u" \r\n"}, 0, false},
        {{true, true, u"a phrase"}, kStrWelcomeArrived, false}};
    for (const auto& [facts, text, mayStart] : cases) {
        EXPECT_EQ(StateOf(facts, texts), (WelcomeState{texts.LoadString(text), mayStart})) << text;
    }
    EXPECT_EQ(WelcomeKeys(u"Ctrl+Alt+Enter", false, texts), u"Ctrl + Alt + Enter");
    EXPECT_TRUE(WelcomeKeys(u"F9", true, texts).ends_with(texts.LoadString(kStrWelcomeTwice)));
}

}  // namespace
}  // namespace vbr
