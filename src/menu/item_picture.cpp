// SPDX-License-Identifier: MIT
#include "menu/item_picture.h"

#include <algorithm>

#include "base/text.h"
#include "menu/extra_commands.h"

namespace vbr {
namespace {

// Measures at the usual dots an inch.
constexpr int kEmptyTextWidth = 100;
constexpr int kTextMargins = 29;
constexpr int kItemExtraHeight = 4;
constexpr int kPopupExtraHeight = 4;
constexpr int kSideBarWidth = 22;
constexpr int kSideBarRoom = 24;
constexpr int kSideBarIconLeft = 4;
constexpr int kSideBarIconAbove = 18;
constexpr int kSideBarTextAbove = 24;
constexpr int kIconSize = 16;
constexpr int kSelectedIconSize = 20;
constexpr int kIconRoom = 18;
constexpr int kIconBack = 20;
constexpr int kTextIndent = 8;
constexpr int kRightTextMargin = 3;
constexpr int kCaptionMargin = 2;
constexpr int kLineIndent = 11;
constexpr int kCaretHalfWidth = 3;
constexpr int kCaretBottom = 5;
constexpr int kCaretTop = 8;

constexpr std::u16string_view kTwoBlanks = u"  ";

std::u16string NumberText(const CMenuItemInfo& info) {
    return info.Number() == 0 ? std::u16string() : Concat(info.Number(), u".");
}

// How far number and blanks move the label.
int NumberWidth(const CMenuItemInfo& info, const TextWidths& widths) {
    const MenuFont font = FontOf(info);
    if (const std::u16string number = NumberText(info); !number.empty()) {
        return widths.WidthOf(number, font) + widths.WidthOf(kTwoBlanks, font);
    }
    return info.History && info.IsPopup() ? widths.WidthOf(kTwoBlanks, font) : 0;
}

// All that painting takes away from the width of a label, and the label. `plainWidth` is that of
// label and right text in the plain font.
int NeededWidth(const CMenuItemInfo& info, bool inRoot, int plainWidth, int dpi,
                const TextWidths& widths) {
    const MenuFont font = FontOf(info);
    int fixed = kTextIndent;
    fixed += inRoot ? kSideBarRoom : 0;
    fixed += IconOf(info) != MenuIcon::None ? kIconRoom : 0;
    fixed += info.RightText.empty() ? 0 : kRightTextMargin + kTextIndent;
    const int texts = font == MenuFont()
                          ? plainWidth
                          : widths.WidthOf(info.Label, font) + widths.WidthOf(info.RightText, font);
    return ScaleToDpi(fixed, dpi) + NumberWidth(info, widths) + texts;
}

class Painter {
  public:
    Painter(const CMenuItemInfo& info, const ItemPlace& place, const MenuColors& colors, int dpi,
            const TextWidths& widths)
        : info_(info), place_(place), colors_(colors), dpi_(dpi), widths_(widths) {}

    ItemPicture Paint() {
        picture_.Background = Background();
        picture_.Font = FontOf(info_);
        Rect rest = place_.Bounds;
        rest.Left += place_.InRoot ? Scaled(kSideBarRoom) : 0;
        PaintIcon(rest);
        picture_.Body = rest;
        text_ = rest;
        text_.Left += Scaled(kTextIndent);
        if (info_.IsSeparator()) {
            PaintLine();
        } else {
            PaintLabel();
        }
        PaintRightText();
        if (info_.RecentIndex == 0 || info_.Mark) {
            picture_.Frame = rest;
            picture_.FrameColor = colors_.Marked;
        }
        return std::move(picture_);
    }

  private:
    int Scaled(int measure) const { return ScaleToDpi(measure, dpi_); }

    MenuColor Background() const {
        if (place_.Selected) {
            return colors_.System.Highlight;
        }
        const MenuColor color = info_.History ? colors_.System.InfoBack : colors_.System.Menu;
        return info_.Row % 2 != 0 && !colors_.System.HighContrast ? StripeColor(color) : color;
    }

    MenuColor LabelColor() const {
        if (place_.Grayed) {
            return colors_.System.GrayText;
        }
        if (place_.Selected) {
            return colors_.System.HighlightText;
        }
        if (IsExtraCommand(info_)) {
            return colors_.ExtraCommand;
        }
        if (info_.History) {
            return colors_.System.InfoText;
        }
        return info_.Mark ? colors_.Marked : colors_.System.MenuText;
    }

    void PaintIcon(Rect& rest) {
        const MenuIcon kind = IconOf(info_);
        if (kind == MenuIcon::None) {
            return;
        }
        const int outside = place_.Selected ? 0 : Scaled(1);
        const bool grown = place_.Selected && !place_.Grayed;
        const int left = rest.Left + Scaled(1) - (grown ? Scaled(1) : 0);
        const int top = rest.Top - (grown ? Scaled(1) : 0);
        const int size = Scaled(grown ? kSelectedIconSize : kIconSize);
        picture_.Icon = {kind,
                         place_.Grayed,
                         {rest.Left + Scaled(1) - outside, rest.Top - outside,
                          rest.Left + Scaled(kIconBack), rest.Bottom},
                         {left, top, left + size, top + size}};
        rest.Left += Scaled(kIconRoom);
    }

    void PaintLine() {
        const int middle = (text_.Top + text_.Bottom) / 2;
        picture_.Line = {
            {{text_.Left + Scaled(kLineIndent), middle}, {text_.Right - Scaled(1), middle}}};
        picture_.LineColor = colors_.System.HighContrast ? colors_.System.MenuText : 0;
    }

    void PaintLabel() {
        if (std::u16string number = NumberText(info_); !number.empty()) {
            picture_.Texts.push_back({std::move(number), text_, NumberColor()});
        }
        text_.Left += NumberWidth(info_, widths_);
        picture_.Texts.push_back({info_.Label, text_, LabelColor(), {}, false, true});
        if (info_.CursorPos >= 0 && !info_.IsPopup()) {
            PaintCaret();
        }
    }

    // Where the system's colours stand, one of its pairs must not be mixed with another.
    MenuColor NumberColor() const {
        return colors_.System.HighContrast ? LabelColor() : colors_.Number;
    }

    void PaintCaret() {
        const std::u16string_view before =
            std::u16string_view(info_.Label).substr(0, static_cast<std::size_t>(info_.CursorPos));
        const int x = text_.Left + widths_.WidthOf(before, FontOf(info_));
        const int half = Scaled(kCaretHalfWidth);
        if (x > text_.Right) {
            return;
        }
        picture_.Caret = {{{x - half, text_.Bottom - Scaled(kCaretBottom)},
                           {x, text_.Bottom - Scaled(kCaretTop)},
                           {x + half, text_.Bottom - Scaled(kCaretBottom)}}};
        picture_.CaretColor = place_.Selected ? colors_.CaretSelected : colors_.Caret;
    }

    void PaintRightText() {
        if (info_.RightText.empty()) {
            return;
        }
        TextPicture right{info_.RightText, text_,
                          place_.Selected ? colors_.RightTextSelected : colors_.Number};
        right.AtRight = true;
        right.Place.Right -= Scaled(kRightTextMargin);
        if (info_.IsSeparator()) {
            right.Behind = picture_.Background;
            right.Place.Right += Scaled(kCaptionMargin);
            right.Place.Left -= Scaled(kCaptionMargin);
            right.Text = Concat(u" ", right.Text, u" ");
        }
        picture_.Texts.push_back(std::move(right));
    }

    const CMenuItemInfo& info_;
    const ItemPlace& place_;
    const MenuColors& colors_;
    int dpi_;
    const TextWidths& widths_;
    ItemPicture picture_;
    Rect text_;
};

}  // namespace

Size MeasureMenuItem(const CMenuItemInfo& info, bool inRoot, const MenuMetrics& metrics,
                     const TextWidths& widths) {
    const std::u16string text = info.Label + info.RightText;
    const int textWidth = text.empty() ? 0 : widths.WidthOf(text, MenuFont());
    const int width = (text.empty() ? ScaleToDpi(kEmptyTextWidth, metrics.Dpi) : textWidth) +
                      ScaleToDpi(kTextMargins, metrics.Dpi);
    const int h = metrics.MenuHeight;
    if (info.IsSeparator() && info.RightText.empty()) {
        return {width, h / 3 != 0 ? h / 3 * 2 : h / 2};
    }
    if (info.IsSeparator()) {
        return {width, h + ScaleToDpi(kItemExtraHeight, metrics.Dpi)};
    }
    const int extra = kItemExtraHeight + (info.IsPopup() ? kPopupExtraHeight : 0);
    return {std::max(width, NeededWidth(info, inRoot, textWidth, metrics.Dpi, widths)),
            h + ScaleToDpi(extra, metrics.Dpi)};
}

ItemPicture PaintMenuItem(const CMenuItemInfo& info, const ItemPlace& place,
                          const MenuColors& colors, int dpi, const TextWidths& widths) {
    return Painter(info, place, colors, dpi, widths).Paint();
}

SideBarPicture PaintSideBar(const Rect& item, int above, int menuHeight, int dpi) {
    const int menuTop = item.Top - above;
    const int bottom = menuTop + menuHeight;
    const int iconLeft = ScaleToDpi(kSideBarIconLeft, dpi);
    const int iconTop = bottom - ScaleToDpi(kSideBarIconAbove, dpi);
    const int iconSize = ScaleToDpi(kIconSize, dpi);
    return {{item.Left, item.Top, item.Left + ScaleToDpi(kSideBarWidth, dpi), item.Bottom},
            {item.Left + iconLeft, iconTop, item.Left + iconLeft + iconSize, iconTop + iconSize},
            {item.Left, bottom - ScaleToDpi(kSideBarTextAbove, dpi)}};
}

}  // namespace vbr
