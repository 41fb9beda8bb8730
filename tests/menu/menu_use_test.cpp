// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "base/text.h"
#include "fakes/fake_clock.h"
#include "menu/menu_tip_rules.h"
#include "menu/menu_typing.h"
#include "menu/right_click_menu.h"
#include "resources/resource_ids.h"
#include "settings/embedded_strings.h"

namespace vbr {
namespace {

// A menu of a recent phrase, a separator, phrases, and two history items.
class Typing : public testing::Test {
  protected:
    Typing() {
        for (const char16_t* label :
             {u"Regards", u"", u"Address", u"agenda", u"Bye", u"1st", u"Ёлка", u"clip", u"clop"}) {
            menu_.emplace_back().Label = label;
        }
        menu_[0].RecentIndex = 0;
        menu_[1].ItemFlags = kItemSeparator;
        for (const std::size_t i : {7U, 8U}) {
            menu_[i].History = true;
            menu_[i].Row = static_cast<std::int32_t>(i) - 7;
        }
    }

    // The labels moved to, one for each unit typed; "-" for none.
    std::string Type(std::u16string_view units) {
        std::vector<const CMenuItemInfo*> items;
        for (const CMenuItemInfo& info : menu_) {
            items.push_back(&info);
        }
        std::string labels;
        for (const char16_t unit : units) {
            const auto place = typing_.OnChar(items, selected_, unit);
            labels += labels.empty() ? "" : " ";
            labels += place ? Utf16ToUtf8(menu_[*place].Label) : "-";
            selected_ = place ? place : selected_;
        }
        return labels;
    }

    FakeClock clock_;
    MenuTyping typing_{clock_};
    std::vector<CMenuItemInfo> menu_;
    std::optional<std::size_t> selected_;
};

TEST_F(Typing, TheFirstLettersOfALabelMoveToItAndOneLetterAgainMovesOn) {
    EXPECT_EQ(Type(u"ag"), "Address agenda");
    EXPECT_EQ(Type(u"ё"), "Ёлка");
    EXPECT_EQ(Type(u"x"), "-");
    EXPECT_EQ(Type(u"clo"), "clip clip clop");
    clock_.Tick += 1001;
    EXPECT_EQ(Type(u"aaa"), "Address agenda Address");
}

TEST_F(Typing, LettersAfterAPauseBeginAnew) {
    EXPECT_EQ(Type(u"c"), "clip");
    clock_.Tick += 1001;
    EXPECT_EQ(Type(u"a"), "Address");
    clock_.Tick += 1000;
    EXPECT_EQ(Type(u"g"), "agenda");
}

TEST_F(Typing, ADigitMovesToTheItemsOfThatNumber) {
    EXPECT_EQ(Type(u"121"), "Regards clop Regards");
    EXPECT_EQ(Type(u"1"), "clip");
    EXPECT_EQ(Type(u"3"), "-");
    menu_[0].RecentIndex = kNotRecent;
    menu_.erase(menu_.end() - 2, menu_.end());
    EXPECT_EQ(Type(u"1s"), "1st 1st");
}

TEST(KeySteps, PassOverSeparators) {
    std::vector<CMenuItemInfo> infos(5);
    infos[0].ItemFlags = infos[2].ItemFlags = kItemSeparator;
    std::vector<const CMenuItemInfo*> items;
    for (const CMenuItemInfo& info : infos) {
        items.push_back(&info);
    }
    EXPECT_EQ(KeyStepsTo(items, std::nullopt, 3), 2);
    EXPECT_EQ(KeyStepsTo(items, 1, 4), 2);
    EXPECT_EQ(KeyStepsTo(items, 4, 1), -2);
    EXPECT_EQ(KeyStepsTo(items, 3, 3), 0);
}

TEST(TipDelay, OneTipComesHalfASecondAfterTheUserRests) {
    FakeClock clock;
    clock.Tick = 0xFFFFFF00;  // it wraps meanwhile
    TipDelay delay(clock);
    for (const std::uint32_t item : {5U, 6U}) {
        delay.Rest(item);
        clock.Tick += 499;
        EXPECT_EQ(delay.TakeDue(), std::nullopt);
    }
    clock.Tick += 1;
    EXPECT_EQ(delay.TakeDue(), 6U);
    clock.Tick += 1000;
    EXPECT_EQ(delay.TakeDue(), std::nullopt);
    delay.Rest(7);
    delay.Cancel();
    clock.Tick += 1000;
    EXPECT_EQ(delay.TakeDue(), std::nullopt);
}

TEST(TipRules, OnlyCommandsHaveTips) {
    const std::pair<MenuSelection, bool> cases[] = {
        {{5, 0x80, true}, true},          {{0, 0, true}, false},
        {{5, kSelectPopup, true}, false}, {{5, kSelectSeparator, true}, false},
        {{5, 0xFFFF, false}, false},
    };
    for (const auto& [selection, expected] : cases) {
        EXPECT_EQ(selection.IsCommand(), expected);
    }
    EXPECT_TRUE(IsSystemMenuCommand(61536));
    EXPECT_FALSE(IsSystemMenuCommand(61537));
}

TEST(TipRules, ATipStandsBesideItsItemOnTheItemsMonitor) {
    constexpr Rect kMain = {0, 0, 1000, 800};
    constexpr Rect kLeft = {-1200, -100, 0, 924};
    constexpr Rect kRight = {1000, 0, 2000, 800};
    const std::tuple<Rect, Size, Rect, bool, Point> cases[] = {
        {{100, 100, 300, 124}, {200, 80}, kMain, false, {300, 100}},
        {{700, 100, 850, 124}, {200, 80}, kMain, false, {500, 100}},
        {{700, 100, 850, 124}, {0, 80}, kMain, false, {700, 100}},
        {{100, 700, 300, 724}, {200, 80}, kMain, false, {300, 644}},
        {{100, 100, 300, 124}, {200, 760}, kMain, false, {300, 0}},
        {{100, 100, 300, 124}, {200, 80}, kMain, true, {300, 112}},
        {{1700, 100, 1900, 124}, {200, 80}, kRight, false, {1500, 100}},
        {{-400, -50, -150, -26}, {200, 80}, kLeft, false, {-600, -50}},
        {{0, 100, 950, 124}, {200, 80}, kMain, false, {0, 100}},
    };
    for (const auto& [item, tip, screen, balloon, expected] : cases) {
        EXPECT_EQ(PlaceTip({item, tip, screen, 200, 150, 1, balloon}), expected)
            << item.Left << "," << item.Top << " " << tip.Height;
    }
}

TEST(TipRules, AShownTipIsKeptOnTheScreens) {
    constexpr Rect kScreens = {-500, 0, 1000, 800};
    EXPECT_EQ(KeepTipOnScreens({900, 700, 1000, 800}, kScreens), std::nullopt);
    EXPECT_EQ(KeepTipOnScreens({900, 700, 1100, 850}, kScreens), (Rect{900, 650, 1000, 800}));
}

TEST(TipRules, TitlesAndTextsAreCutAndCleaned) {
    EXPECT_EQ(ShortTipTitle(std::u16string(97, u'x')).size(), 97U);
    EXPECT_EQ(ShortTipTitle(std::u16string(98, u'x')), std::u16string(97, u'x') + u"…");
    EXPECT_LT(TipTextToShow(std::u16string(1 << 20, u'x')).size(), 5000U);
    EXPECT_EQ(TipTextToShow(u"a\tb\n"), u"a        b\n");
    EXPECT_EQ(TitleOfMenuString(u"&Copy\tCtrl+C"), u"Copy\t[Ctrl+C]");
}

std::string RightMenuOf(const CMenuItemInfo& info) {
    std::string picture;
    for (const MenuEntry& entry : BuildRightClickMenu(info, EmbeddedStrings())) {
        picture += entry.IsSeparator() ? "-" : (entry.Grayed ? "~" : "") + Utf16ToUtf8(entry.Text);
        picture += "|";
    }
    return picture;
}

TEST(RightClickMenu, OffersWhatCanBeDoneWithTheItem) {
    EXPECT_EQ(RightMenuOf({.ExpandedText = u" \tR&D\r\nfor\tall "}),
              "Copy|Open As URL|-|~Edit|~Open With…|-|Search In Google [R&&D for all]|Search in "
              "Yandex [R&&D for all]|Search in Wikipedia [R&&D for all]|Search in MSDN [R&&D for "
              "all]|");
    EXPECT_TRUE(HasRightClickMenu({}));
    EXPECT_FALSE(HasRightClickMenu({.Subject = {MenuSubjectKind::ExtraCommand, kCmdSupport}}));
    const CMenuItemInfo bitmap{
        .ExpandedText = std::u16string(71, u'x'), .History = true, .Bitmap = true};
    const std::string text = " [" + std::string(70, 'x') + "…]|";
    EXPECT_EQ(RightMenuOf(bitmap), "Copy|~Open As URL|-|Edit|Open With…|-|~Search In Google" +
                                       text + "~Search in Yandex" + text + "~Search in Wikipedia" +
                                       text + "~Search in MSDN" + text);
}

}  // namespace
}  // namespace vbr
