// SPDX-License-Identifier: MIT
#include "menu/menu_tip_rules.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/text.h"

namespace vbr {
namespace {

constexpr std::uint32_t kSystemCommands[] = {61440, 61456, 61472, 61488, 61536, 61728};
constexpr std::size_t kTitleLimit = 97;
constexpr std::size_t kTextLimit = 4000;

}  // namespace

bool IsSystemMenuCommand(std::uint32_t id) {
    return std::find(std::begin(kSystemCommands), std::end(kSystemCommands), id) !=
           std::end(kSystemCommands);
}

void TipDelay::Rest(std::uint32_t id) {
    pending_ = id;
    since_ = clock_.TickCount();
}

std::optional<std::uint32_t> TipDelay::TakeDue() {
    if (!pending_ || clock_.TickCount() - since_ < kTipDelayMs) {
        return std::nullopt;
    }
    return std::exchange(pending_, std::nullopt);
}

Point PlaceTip(const TipPlacing& placing) {
    const Rect& item = placing.Item;
    const int width = placing.Tip.Width != 0 ? placing.Tip.Width : placing.WidthGuess;
    Point place{item.Right, item.Top};
    if (item.Right + width > placing.Screen.Right) {
        place.X = item.Left - placing.Tip.Width;
    }
    if (item.Top + placing.HeightGuess > placing.Screen.Bottom) {
        place.Y = item.Bottom - placing.Tip.Height;
    }
    if (placing.IsBalloon) {
        place.Y += item.Height() / 2;
    } else if (place.Y + placing.Tip.Height > placing.Screen.Bottom) {
        place.Y = item.Bottom - placing.Tip.Height - placing.BorderHeight;
    }
    // Beside a menu as wide as the screen, or below a tall tip, there may be no such place.
    place.X = std::max(place.X, placing.Screen.Left);
    place.Y = std::max(place.Y, placing.Screen.Top);
    return place;
}

std::optional<Rect> KeepTipOnScreens(const Rect& tip, const Rect& screens) {
    Rect kept = tip;
    kept.Right = std::min(kept.Right, screens.Right);
    if (const int excess = kept.Bottom - screens.Bottom; excess > 0) {
        kept.Top -= excess;
        kept.Bottom -= excess;
    }
    return kept == tip ? std::nullopt : std::optional(kept);
}

std::u16string ShortTipTitle(std::u16string_view title) {
    return title.size() <= kTitleLimit ? std::u16string(title)
                                       : Concat(CutUnits(title, kTitleLimit), u"…");
}

std::u16string TipTextToShow(std::u16string_view text) {
    std::u16string shown(CutUnits(text, kTextLimit));
    if (shown.size() < text.size()) {
        shown += u'…';
    }
    ReplaceAll(shown, u"\t", u"        ");
    return shown;
}

std::u16string TitleOfMenuString(std::u16string_view text) {
    std::u16string title(text);
    ReplaceAll(title, u"&", u"");
    if (const std::size_t tab = title.find(u'\t'); tab != title.npos) {
        title = Concat(title.substr(0, tab), u"\t[", title.substr(tab + 1), u"]");
    }
    return title;
}

}  // namespace vbr
