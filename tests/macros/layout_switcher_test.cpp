// SPDX-License-Identifier: MIT
#include "macros/layout_switcher.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/delivery_fixture.h"

namespace vbr {
namespace {

constexpr Lcid kFrench = 0x040C;
constexpr WindowHandle kOwnWindow = 8;

// Every press of the shortcut turns to the next layout, unless the window doesn't follow.
class TurningWindows : public FakeDesktopWindows {
  public:
    TurningWindows(Journal& calls, const RecordingInput& input, const FakeKeyboardLayouts& layouts)
        : FakeDesktopWindows(calls), input_(input), layouts_(layouts) {}

    bool Follows = true;

    LayoutHandle KeyboardLayout(std::uint32_t) const override {
        const std::size_t turns = Follows ? input_.Sent.size() : 0;
        return 0xF0000000 | layouts_.Languages[turns % layouts_.Languages.size()];
    }

  private:
    const RecordingInput& input_;
    const FakeKeyboardLayouts& layouts_;
};

class Switching : public testing::Test {
  protected:
    Journal calls_;
    RecordingInput input_;
    FakeKeyboardLayouts layouts_;
    TurningWindows windows_{calls_, input_, layouts_};
    FakeTargetWindows targets_;
    FakeClock clock_;
    MemoryLog log_;
    LayoutSwitcher switcher_{{input_, layouts_, windows_, targets_, clock_, log_}};
};

TEST_F(Switching, PressesUntilTheWindowHasTheLanguage) {
    const struct {
        std::vector<Lcid> Languages;
        Lcid Wanted;
        WindowHandle Window;
        bool Follows;
        std::size_t Presses;
        std::size_t Waits;
    } cases[] = {
        {{kEnglish}, kRussian, 7, true, 1, 0},
        {{kEnglish, kRussian}, kEnglish, 7, true, 1, 0},  // nothing is asked back
        {{kEnglish, kRussian, kFrench}, kRussian, 7, true, 1, 1},
        {{kEnglish, kRussian, kFrench, kBritish}, kBritish, 7, true, 3, 3},
        {{kEnglish, kRussian, kFrench, kBritish}, kBritish, kOwnWindow, true, 3, 0},
        {{kEnglish, kRussian, kFrench}, kFrench, 7, false, 3, 3},
    };
    targets_.Own = {kOwnWindow};
    for (const auto& c : cases) {
        layouts_.Languages = c.Languages;
        windows_.Follows = c.Follows;
        input_.Sent.clear();
        clock_.Sleeps.clear();
        targets_.Wakes = 0;
        switcher_.SwitchKeyboardLayout(c.Wanted, c.Window);
        EXPECT_EQ(input_.Sent.size(), c.Presses) << c.Languages.size();
        EXPECT_EQ(clock_.Sleeps, std::vector<std::uint32_t>(c.Waits, 200)) << c.Languages.size();
        EXPECT_EQ(targets_.Wakes, static_cast<int>(c.Waits)) << c.Languages.size();
    }
}

TEST_F(Switching, TheShortcutIsThatOfTheSystemsSettings) {
    const struct {
        LayoutToggleSetting Setting;
        LayoutToggle Toggle;
        std::uint16_t First;
        std::uint16_t Second;
        std::u16string_view LogLine;
    } cases[] = {
        {{true, u"1"}, LayoutToggle::AltShift, 164, 16, u""},
        {{true, std::nullopt}, LayoutToggle::AltShift, 164, 16, u""},
        {{true, u"2x"}, LayoutToggle::CtrlShift, 162, 16, u""},
        {{true, u"3"}, LayoutToggle::None, 164, 16, u"ERROR: Cannot detect"},
        {{true, u"4"}, LayoutToggle::GraveAccent, 0, 192, u"Warning: keyboard layout switch"},
        {{true, u"5"}, LayoutToggle::Unknown, 164, 16, u"ERROR: Cannot detect"},
        {{true, u""}, LayoutToggle::Unknown, 164, 16, u"ERROR: Cannot detect"},
        {{false, u"1"}, LayoutToggle::Unknown, 164, 16, u"ERROR: Cannot detect"},
    };
    layouts_.Languages = {kEnglish};
    for (const auto& c : cases) {
        EXPECT_EQ(GetLayoutToggle(c.Setting), c.Toggle);
        layouts_.Toggle = c.Setting;
        input_.Sent.clear();
        log_.Lines.clear();
        switcher_.SwitchKeyboardLayout(kRussian, 7);
        const auto scan = static_cast<std::uint16_t>(c.Second + 100);
        std::vector<KeyEvent> keys = {{c.Second, scan, 0, 0}, {c.Second, scan, 2, 0}};
        if (c.First != 0) {
            keys.insert(keys.begin(), {c.First, 0, 0, 0});
            keys.push_back({c.First, 0, 2, 0});
        }
        EXPECT_THAT(input_.Sent, testing::ElementsAre(keys));
        EXPECT_EQ(log_.Lines.size(), c.LogLine.empty() ? 0U : 1U);
        EXPECT_TRUE(log_.Lines.empty() || log_.Lines[0].starts_with(c.LogLine));
    }
}

}  // namespace
}  // namespace vbr
