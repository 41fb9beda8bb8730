// SPDX-License-Identifier: MIT
#include "menu/item_picture.h"

#include <gtest/gtest.h>
#include <set>

#include "menu/extra_commands.h"
#include "phrases/command_record.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

constexpr SystemMenuColors kSystem = {0xF0F0F0, 0x000001, 0xFF9933, 0xFFFFFF,
                                      0x6D6D6D, 0xE1FFFF, 0x000002, false};

// Ten pixels a unit, eleven in bold.
class TenPixelFont : public TextWidths {
  public:
    int WidthOf(std::u16string_view text, MenuFont font) const override {
        return static_cast<int>(text.size()) * (font.Bold ? 11 : 10);
    }
};

CMenuItemInfo Phrase(std::u16string label) {
    return {.Label = std::move(label), .CommandId = 1};
}

CMenuItemInfo Separator(std::u16string caption = {}) {
    return {.RightText = std::move(caption), .ItemFlags = kItemSeparator};
}

CMenuItemInfo Popup(std::u16string label) {
    return {.Label = std::move(label), .ItemFlags = kItemPopup};
}

CMenuItemInfo HistoryItem(std::uint32_t index) {
    return {.Label = u"abc", .History = true, .Row = static_cast<std::int32_t>(index)};
}

ItemPicture Paint(const CMenuItemInfo& info, ItemPlace place = {}, int dpi = 96,
                  const SystemMenuColors& system = kSystem) {
    if (place.Bounds == Rect()) {
        place.Bounds = {0, 100, 300, 124};
    }
    return PaintMenuItem(info, place, ChooseMenuColors(system), dpi, TenPixelFont());
}

TEST(MeasureMenuItem, AsksForTheRoomThatItsTextNeeds) {
    const CMenuItemInfo badge{.Label = u"abcd", .RightText = u"+EN", .CommandId = 1};
    const CMenuItemInfo extra{.Label = u"abcd",
                              .Subject = {MenuSubjectKind::ExtraCommand, kCmdSupport}};
    const std::tuple<CMenuItemInfo, bool, MenuMetrics, Size> cases[] = {
        {Phrase(u""), true, {20, 96}, {129, 24}},
        {Separator(), true, {20, 96}, {129, 12}},
        {Separator(), true, {2, 96}, {129, 1}},
        {Separator(u"abcd"), true, {20, 96}, {69, 24}},
        {Popup(u"abcd"), false, {20, 96}, {69, 28}},
        {Phrase(u"abcd"), false, {20, 96}, {69, 24}},
        // The side bar, a number and a heavier font take what the usual margins do not have.
        {Phrase(u"abcd"), true, {20, 96}, {90, 24}},
        {HistoryItem(11), true, {20, 96}, {24 + 18 + 8 + 30 + 20 + 30, 24}},
        {extra, true, {20, 96}, {24 + 8 + 44, 24}},
        {badge, false, {20, 96}, {18 + 8 + 40 + 3 + 8 + 30, 24}},
        {Phrase(u"abcd"), false, {40, 192}, {98, 48}},
        {Popup(u""), false, {30, 144}, {194, 42}},
    };
    for (const auto& [info, inRoot, metrics, expected] : cases) {
        EXPECT_EQ(MeasureMenuItem(info, inRoot, metrics, TenPixelFont()), expected)
            << testing::PrintToString(info.Label) << " at " << metrics.Dpi;
    }
}

TEST(PaintMenuItem, RegionsStatesAndStripesHaveTheirColours) {
    const CMenuItemInfo odd{.Label = u"a", .Row = 1, .CommandId = 1};
    const CMenuItemInfo marked{.Label = u"a", .Mark = true, .CommandId = 1};
    const CMenuItemInfo extra{.Label = u"a",
                              .Subject = {MenuSubjectKind::ExtraCommand, kCmdEditPhrases}};
    const CMenuItemInfo clip = HistoryItem(0);
    const CMenuItemInfo oddClip = HistoryItem(1);
    // Selected, grayed, the background and the label's colour.
    const std::tuple<CMenuItemInfo, bool, bool, MenuColor, MenuColor> cases[] = {
        {Phrase(u"a"), false, false, 0xF0F0F0, 0x000001},
        {Phrase(u"a"), false, true, 0xF0F0F0, 0x6D6D6D},
        {Phrase(u"a"), true, false, 0xFF9933, 0xFFFFFF},
        {Phrase(u"a"), true, true, 0xFF9933, 0x6D6D6D},
        {odd, false, false, 0xECECEC, 0x000001},
        {marked, false, false, 0xF0F0F0, 0x0000FF},
        {clip, false, false, 0xE1FFFF, 0x000002},
        {oddClip, false, false, 0xDDFBFB, 0x000002},
        {extra, false, false, 0xF0F0F0, 0x008000},
    };
    for (const auto& [info, selected, grayed, background, label] : cases) {
        const ItemPicture picture = Paint(info, {.Selected = selected, .Grayed = grayed});
        EXPECT_EQ(picture.Background, background);
        EXPECT_EQ(picture.Texts.back().Color, label);
    }
    EXPECT_EQ(StripeColor(0), 0x040404U);
    EXPECT_EQ(StripeColor(0x02FF00), 0xFEFBFCU);
}

TEST(PaintMenuItem, HighContrastLeavesNothingButTheSystemsColours) {
    SystemMenuColors system = kSystem;
    system.HighContrast = true;
    CMenuItemInfo info = HistoryItem(1);
    info.CursorPos = 1;
    info.RightText = u"+EN";
    const std::set<MenuColor> known = {system.Menu,          system.MenuText, system.Highlight,
                                       system.HighlightText, system.InfoBack, system.InfoText};
    for (const bool selected : {false, true}) {
        const ItemPicture picture = Paint(info, {.Selected = selected}, 96, system);
        EXPECT_TRUE(known.contains(picture.Background) && known.contains(picture.CaretColor));
        for (const TextPicture& text : picture.Texts) {
            EXPECT_TRUE(known.contains(text.Color)) << testing::PrintToString(text.Text);
        }
    }
}

TEST(PaintMenuItem, PartsStandSideBySide) {
    CMenuItemInfo info = HistoryItem(0);
    info.RightText = u"+EN";
    info.CursorPos = 2;
    const ItemPicture picture = Paint(info, {.InRoot = true});
    EXPECT_EQ(picture.Icon,
              (IconPicture{MenuIcon::PlainText, false, {24, 99, 44, 124}, {25, 100, 41, 116}}));
    EXPECT_EQ(picture.Body, (Rect{42, 100, 300, 124}));
    EXPECT_EQ(picture.Texts[0], (TextPicture{u"1.", {50, 100, 300, 124}, 0xFF0000}));
    EXPECT_EQ(picture.Texts[1],
              (TextPicture{u"abc", {90, 100, 300, 124}, 0x000002, {}, false, true}));
    EXPECT_EQ(picture.Texts[2],
              (TextPicture{u"+EN", {90, 100, 297, 124}, 0xFF0000, {}, true, false}));
    EXPECT_EQ(picture.Caret, (std::array<Point, 3>{{{107, 119}, {110, 116}, {113, 119}}}));
    EXPECT_FALSE(picture.Line || picture.Frame);
}

TEST(PaintMenuItem, ASelectedItemsIconGrowsUnlessItIsGrayed) {
    EXPECT_EQ(Paint(Phrase(u"a"), {.Selected = true}).Icon->Place, (Rect{0, 99, 20, 119}));
    EXPECT_EQ(Paint(Phrase(u"a"), {.Selected = true, .Grayed = true}).Icon->Place,
              (Rect{1, 100, 17, 116}));
}

TEST(PaintMenuItem, ASeparatorIsALineAndItsCaptionStandsOutOfIt) {
    const ItemPicture plain = Paint(Separator(), {.InRoot = true});
    EXPECT_EQ(plain.Line, (std::array<Point, 2>{{{43, 112}, {299, 112}}}));
    EXPECT_TRUE(plain.Texts.empty() && !plain.Icon);
    const ItemPicture captioned = Paint(Separator(u"Other"));
    ASSERT_EQ(captioned.Texts.size(), 1U);
    EXPECT_EQ(captioned.Texts[0],
              (TextPicture{u" Other ", {6, 100, 299, 124}, 0xFF0000, 0xF0F0F0, true, false}));
}

TEST(PaintMenuItem, TheNewestRecentPhraseAndMarkedItemsAreFramed) {
    CMenuItemInfo info = Phrase(u"a");
    EXPECT_FALSE(Paint(info).Frame);
    info.RecentIndex = 1;
    EXPECT_FALSE(Paint(info).Frame);
    info.RecentIndex = 0;
    EXPECT_EQ(Paint(info).Frame, (Rect{18, 100, 300, 124}));
    const CMenuItemInfo group{.Label = u"G", .ItemFlags = kItemPopup, .Mark = true};
    EXPECT_EQ(Paint(group, {.InRoot = true}).Frame, (Rect{24, 100, 300, 124}));
}

TEST(PaintMenuItem, MeasuresGrowWithTheScreensDots) {
    const ItemPicture picture =
        Paint(Phrase(u"a"), {.Bounds = {0, 0, 600, 48}, .InRoot = true}, 192);
    EXPECT_EQ(picture.Icon->Place, (Rect{50, 0, 82, 32}));
    EXPECT_EQ(picture.Texts[0].Place.Left, 48 + 36 + 16);
}

TEST(MenuLook, FontsAndIconsTellTheKindOfAnItem) {
    const std::tuple<std::int32_t, std::u16string, std::u16string, MenuIcon, std::size_t> cases[] =
        {
            {kDataTypeText, u"Google it", u"http://x", MenuIcon::PlainText, 0},
            {kDataTypeRtf, u"a", u"", MenuIcon::FormattedText, 2},
            {kDataTypeExec, u"in gooGLE or Yandex", u"http://x", MenuIcon::SearchOne, 4},
            {kDataTypeExec, u"by yandex", u"", MenuIcon::SearchTwo, 4},
            {kDataTypeExec, u"a", u"Https://x", MenuIcon::Url, 4},
            {kDataTypeExec, u"a", u"www.x", MenuIcon::Url, 4},
            {kDataTypeExec, u"a", u"notepad http://x", MenuIcon::Execute, 4},
        };
    for (const auto& [type, label, cmd, icon, font] : cases) {
        const CMenuItemInfo info{
            .Label = label, .PhraseData = cmd, .DataType = type, .CommandId = 1};
        EXPECT_EQ(IconOf(info), icon) << testing::PrintToString(label);
        EXPECT_EQ(IndexOf(FontOf(info)), font);
    }
    const CMenuItemInfo extra{.Label = u"a",
                              .Subject = {MenuSubjectKind::ExtraCommand, kCmdSupport}};
    EXPECT_EQ(IconOf(extra), MenuIcon::None);
    EXPECT_EQ(IndexOf(FontOf(extra)), 1U);
}

}  // namespace
}  // namespace vbr
