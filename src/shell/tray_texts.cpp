// SPDX-License-Identifier: MIT
#include "shell/tray_texts.h"

#include "base/text.h"
#include "base/version.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

constexpr std::u16string_view kElevatedMark = u"^";
constexpr std::u16string_view kLineBreak = u"\n";

}  // namespace

std::u16string TrayFirstLine(const TrayState& state, const Strings& strings) {
    const std::u16string onOff =
        state.ServiceInstalled ? strings.LoadString(kStrOn) : ToUpper(strings.LoadString(kStrOff));
    return Concat(NameAndVersion(), state.Elevated ? kElevatedMark : u"", u" - ", onOff);
}

std::u16string GetTrayInfoText(const TrayState& state, const Strings& strings) {
    return Concat(strings.LoadString(kStrHotKey), u": ", state.HotkeyName, kLineBreak,
                  strings.LoadString(kStrFolder), u": ", TrimRight(state.PhrasesFolder, u"\\"),
                  u" [", state.Phrases.Enabled, u"/", state.Phrases.Total, u"]", kLineBreak,
                  strings.LoadString(kStrRightClickForMenu));
}

std::u16string CutToTip(std::u16string tip) {
    while (tip.size() > kTrayTipMax) {
        const std::size_t lastBreak = tip.rfind(kLineBreak);
        if (lastBreak == tip.npos) {
            return std::u16string(CutUnits(tip, kTrayTipMax));
        }
        tip.resize(lastBreak);
    }
    return tip;
}

std::u16string TrayTip(std::u16string_view firstLine, std::u16string_view details) {
    return CutToTip(Concat(firstLine, kLineBreak, details));
}

TrayIconContent MakeTrayIconContent(const TrayState& state, std::u16string_view balloonText,
                                    bool warning, const Strings& strings) {
    const std::u16string firstLine = TrayFirstLine(state, strings);
    TrayIconContent content;
    content.IconId = state.ServiceInstalled ? kIconProgram : kIconProgramOff;
    content.Info = GetTrayInfoText(state, strings);
    if (state.HistoryNotSaved) {
        content.Info = Concat(strings.LoadString(kStrHistoryNotSaved), kLineBreak, content.Info);
    }
    content.Tip = TrayTip(firstLine, content.Info);
    content.InfoTitle = balloonText.empty() ? firstLine : Concat(firstLine, u", ", balloonText);
    content.Warning = warning;
    return content;
}

}  // namespace vbr
