// SPDX-License-Identifier: MIT
#include "shell/win32/delivery_road.h"

#include "base/text.h"
#include "shell/win32/app_objects.h"

namespace vbr {

DeliveryRoad::DeliveryRoad(const Parts& parts, ClipboardCalls calls)
    : parts_(parts),
      calls_(std::move(calls)),
      prompter_(parts.Texts),
      text_({input_, parts.Clipboard, parts.RichText, locale_, clock_, *this, parts.RoadLog,
             [&settings = parts.Settings] {
                 return PasteSettings{settings.TextPasteMethod, settings.PrintLTChars};
             }}),
      switcher_({input_, layouts_, windows_, targets_, clock_, parts.RoadLog}),
      commands_(starter_, errors_, parts.Texts, *this, parts.RoadLog),
      runner_({parts.Macros, parts.Rich, text_, commands_, prompter_, windows_, targets_,
               parts.RoadLog}),
      delivery_({parts.Tree, parts.Macros, runner_, text_, switcher_, *this, parts.RoadLog}) {}

void DeliveryRoad::PlayEventSound(DeliverySound sound) {
    CAppObjects::PlayEventSound(static_cast<EventSound>(sound));
}

void DeliveryRoad::BeginOwnCopy() {
    if (calls_.BeginOwnCopy) {
        calls_.BeginOwnCopy();
    }
}

void DeliveryRoad::EndOwnCopy() {
    if (calls_.EndOwnCopy) {
        calls_.EndOwnCopy();
    }
}

void DeliveryRoad::KeepClipboard() {
    if (calls_.Keep) {
        calls_.Keep();
    }
}

void DeliveryRoad::RestoreClipboard() {
    if (calls_.Restore) {
        BeginOwnCopy();
        calls_.Restore();
        EndOwnCopy();
    }
}

std::optional<ClipText> DeliveryRoad::HistoryItem(std::size_t position) const {
    if (calls_.HistoryItem) {
        return calls_.HistoryItem(position);
    }
    parts_.RoadLog.Write(Concat(u"Clipboard history is off, no item ", position));
    return std::nullopt;
}

}  // namespace vbr
