// SPDX-License-Identifier: MIT
#include "macros/layout_switcher.h"

#include <algorithm>
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
        const auto ups = std::ranges::count_if(input_.Keys(), [](const KeyEvent& event) {
            return event.Vk == kVkShift && (event.Flags & kKeyUp) != 0;
        });
        const std::size_t turns = Follows ? static_cast<std::size_t>(ups) : 0;
        return 0xF0000000 | layouts_.Languages[turns % layouts_.Languages.size()];
    }

  private:
    const RecordingInput& input_;
    const FakeKeyboardLayouts& layouts_;
};

class Switching : public testing::Test {
  protected:
    Journal calls_;
    FakeClock clock_;
    RecordingInput input_{clock_};
    FakeInputJoin join_;
    FakeKeyboardLayouts layouts_;
    TurningWindows windows_{calls_, input_, layouts_};
    FakeTargetWindows targets_;
    MemoryLog log_;
    TargetInput keys_{{input_, join_, targets_, clock_, log_}};
    LayoutSwitcher switcher_{{input_, keys_, layouts_, windows_, targets_, clock_, log_}};
};

TEST_F(Switching, PressesUntilTheWindowHasTheLanguage) {
    // The language wanted in the window, whether it follows, presses, what they take at most.
    const std::tuple<std::vector<Lcid>, Lcid, WindowHandle, bool, std::size_t, std::uint32_t>
        cases[] = {
            {{kEnglish}, kRussian, 7, true, 1, 0},
            {{kEnglish, kRussian}, kEnglish, 7, true, 1, 0},  // nothing is asked back
            {{kEnglish, kRussian, kFrench}, kRussian, 7, true, 1, 0},
            {{kEnglish, kRussian, kFrench, kBritish}, kBritish, 7, true, 3, 400},
            {{kEnglish, kRussian, kFrench, kBritish}, kBritish, kOwnWindow, true, 3, 0},
            {{kEnglish, kRussian, kFrench}, kFrench, 7, false, 3, 600},
        };
    targets_.Own = {kOwnWindow};
    for (const auto& [languages, wanted, window, follows, presses, ms] : cases) {
        layouts_.Languages = languages;
        windows_.Follows = follows;
        input_.Sent.clear();
        const std::uint32_t start = clock_.Tick;
        switcher_.SwitchKeyboardLayout(wanted, window);
        EXPECT_EQ(input_.Keys().size(), 4 * presses) << languages.size();
        EXPECT_EQ(clock_.Tick - start, ms) << languages.size();
    }
}

TEST_F(Switching, TheShortcutIsThatOfTheSystemsSettings) {
    using enum LayoutToggle;
    // With the keys that are pressed, and whether the log tells of it.
    const std::tuple<LayoutToggleSetting, LayoutToggle, std::uint16_t, std::uint16_t, bool>
        cases[] = {
            {{true, u"1"}, AltShift, 164, 16, false},
            {{true, std::nullopt}, AltShift, 164, 16, false},
            {{true, u"2x"}, CtrlShift, 162, 16, false},
            {{true, u"3"}, None, 164, 16, true},
            {{true, u"4"}, GraveAccent, 0, 192, true},
            {{true, u"5"}, Unknown, 164, 16, true},
            {{true, u""}, Unknown, 164, 16, true},
            {{false, u"1"}, Unknown, 164, 16, true},
        };
    layouts_.Languages = {kEnglish};
    for (const auto& [setting, toggle, first, second, told] : cases) {
        EXPECT_EQ(GetLayoutToggle(setting), toggle);
        layouts_.Toggle = setting;
        input_.Sent.clear();
        log_.Lines.clear();
        switcher_.SwitchKeyboardLayout(kRussian, 7);
        const auto scan = static_cast<std::uint16_t>(second + 100);
        std::vector<KeyEvent> keys = {{second, scan, 0}, {second, scan, 2}};
        if (first != 0) {
            const auto firstScan = static_cast<std::uint16_t>(first + 100);
            keys.insert(keys.begin(), {first, firstScan, 0});
            keys.push_back({first, firstScan, 2});
        }
        EXPECT_EQ(input_.Keys(), keys);
        EXPECT_EQ(log_.Lines.size(), told ? 1U : 0U);
    }
}

}  // namespace
}  // namespace vbr
