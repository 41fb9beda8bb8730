// SPDX-License-Identifier: MIT
#include "shell/win32/phrase_road.h"

#include "diagnostics/win32/window_state.h"
#include "platform/object_names.h"
#include "platform/win32/wide.h"
#include "shell/tray_messages.h"

namespace vbr {
namespace {

ChoiceNotice PostChoiceTo(HWND window) {
    return [window](std::int32_t choice, WindowHandle target) {
        PostMessageW(window, kMsgCommandFromSelf, static_cast<WPARAM>(choice),
                     static_cast<LPARAM>(target));
    };
}

std::unique_ptr<QueryRoad> MakeRoad(RoadKind kind, DesktopWindows& windows,
                                    SelectedTextReader& selection, UINT queryMessage, Log& log) {
    if (kind == RoadKind::Posted) {
        return std::make_unique<PostedRoad>(windows, selection, queryMessage, log);
    }
    return std::make_unique<LocalRoad>(windows, selection);
}

// The library asks the system the same question as the program, unless the answer is forced.
QueryRoadChoice RoadOfLibrary(std::optional<RoadKind> forced) {
    if (!forced) {
        return QueryRoadChoice::OfSystem;
    }
    return *forced == RoadKind::Posted ? QueryRoadChoice::Posted : QueryRoadChoice::Local;
}

}  // namespace

PhraseRoad::PhraseRoad(const Parts& parts, HWND window)
    : parts_(parts),
      window_(window),
      queryMessage_(RegisterWindowMessageW(Wide(kMessageQuery.data()))),
      system_(parts.Locations.ProgramFolder),
      files_(fileStore_, parts.RoadLog),
      saver_(files_),
      tree_(files_, saver_, clock_, parts.RoadLog),
      values_(clock_, locale_, system_),
      macros_(values_, layouts_, locale_, parts.RoadLog),
      richText_(parts.RoadLog),
      richMacros_(macros_, layouts_, locale_, richText_),
      previews_({macros_, richMacros_, richText_, layouts_, locale_, parts.Texts}),
      items_(previews_, locale_, parts.Texts),
      clipboardAccess_(window),
      historyTexts_(ansi_, richText_, parts.RoadLog),
      history_(parts.History.Queue(), historyTexts_),
      historyClipboard_({.Queue = parts.History.Queue(),
                         .Access = clipboardAccess_,
                         .Bitmaps = bitmaps_,
                         .Texts = historyTexts_,
                         .Locale = locale_,
                         .Log = parts.RoadLog}),
      snapshot_(clipboardAccess_, parts.RoadLog),
      delivery_(
          {parts.Settings, parts.Texts, tree_, macros_, richMacros_, richText_, clipboardAccess_,
           parts.RoadLog},
          {.BeginOwnCopy = [this] { parts_.History.BeginOwnCopy(); },
           .EndOwnCopy = [this] { parts_.History.EndOwnCopy(); },
           .Keep = [this] { snapshot_.ClearRestore(); },
           .Restore = [this] { snapshot_.RestoreClipboardSnapshot(); },
           .HistoryItem = [this](std::size_t position) { return history_.AsPhrase(position); }}),
      selection_(clipboard_, input_, windows_, clock_,
                 [&history = parts.History] { history.BlockForAWhile(); }),
      queryRoad_(MakeRoad(ChooseRoad(system_.Is64BitWindows(), parts.ForcedRoad), windows_,
                          selection_, queryMessage_, parts.RoadLog)),
      queryWait_(
          {window, kMsgQueryReady, kMsgWaitError, parts.Stop, objects_, selection_, parts.RoadLog}),
      hookModule_(parts.Locations.HookLibrary()),
      hooks_(hookModule_, objects_, windows_, *queryRoad_, parts.Locations.HookLibrary(),
             parts.RoadLog),
      hotkeys_(window, kHotkeyId),
      service_({parts.Settings, hooks_, queryWait_, hotkeys_, objects_, objects_, parts.RoadLog,
                parts.Messages}),
      presenter_({window, parts.Settings, parts.Texts, clock_, parts.Guard, parts.RoadLog,
                  [window](RightMenuCode code, std::uint32_t id) {
                      return SendMessageW(window, kMsgRightMenuCommand, static_cast<WPARAM>(code),
                                          static_cast<LPARAM>(id)) != 0;
                  },
                  [window] { SendMessageW(window, kMsgHideTip, 0, 0); }, parts.Locations.Editor()}),
      builder_({tree_, items_, history_, parts.Settings, parts.Texts, presenter_, clock_,
                parts.Guard, parts.RoadLog,
                [](WindowHandle asked) { return StateOf(reinterpret_cast<HWND>(asked)); }},
               PostChoiceTo(window)),
      rightMenu_(
          {tree_, builder_, [this](const VBRCommand& record) { return ExpandedText(record); },
           [this](bool plain, std::u16string_view text) {
               return delivery_.Text().CopyToClipboard(plain, text, LanguageOf(builder_.Hkl()));
           },
           [this](std::size_t index) { return CopyHistoryItem(index); },
           [this] { snapshot_.ClearRestore(); }, parts.RoadLog}) {}

bool PhraseRoad::InstallService(std::u16string& errorText) {
    if (parts_.Settings.WriteLog) {
        parts_.RoadLog.StartLog(parts_.Locations.LogFile);
    } else {
        parts_.RoadLog.StopLog();
    }
    LoadPhrases();
    const HookServiceStart start{reinterpret_cast<WindowHandle>(window_),
                                 queryMessage_,
                                 parts_.RoadLog.Path(),
                                 parts_.RoadLog.Atom(),
                                 builder_.IsAllow_WaitAnswerFromExeAgent(),
                                 RoadOfLibrary(parts_.ForcedRoad)};
    return service_.Install(start, parts_.Access.FileExists(hooks_.LibraryPath()), errorText);
}

void PhraseRoad::LoadPhrases() {
    // A file that is being swapped in can't be read.
    saver_.Flush();
    tree_.LoadTree(PhrasesFolder());
}

std::u16string PhraseRoad::PhrasesFolder() const {
    return EffectivePhrasesFolder(parts_.Settings.PhrasesDirectory, parts_.Locations,
                                  parts_.Access);
}

QueryStart PhraseRoad::StartQuery(bool fromHotkey) {
    builder_.SetClipboardAtHotkey(clipboard_.UnicodeText());
    // A copy in the target would replace what could not be kept.
    selection_.AllowCopy(snapshot_.Take());
    WPQuery query;
    query.GuiThreadInfo = windows_.OwnGuiThread();
    const QueryStart start = hooks_.SendMessageToTargetWindow(fromHotkey ? 0 : 1, query);
    if (start == QueryStart::Failed) {
        snapshot_.ClearRestore();
    }
    if (start == QueryStart::Local) {
        WPAnswer answer;
        builder_.OnDataNeeded(query, answer);
    }
    return start;
}

void PhraseRoad::OnQueryReady(WPARAM query, LPARAM answer) {
    const auto exchange = queryWait_.Find(query, answer);
    if (exchange && !builder_.IsMenuShown()) {
        builder_.OnDataNeeded(exchange->Query, exchange->Answer);
    }
}

// As a delivery makes it, but for no target.
std::u16string PhraseRoad::ExpandedText(const VBRCommand& record) {
    std::u16string text = record.Cmd;
    macros_.StripLayoutMacros(text);
    ActionList actions;
    delivery_.Runner().BuildActions({0, builder_.ClipboardAtHotkey(), builder_.SelectedText(),
                                     record.DataType, LanguageOf(builder_.Hkl())},
                                    text, actions);
    return ActionsToText(actions);
}

bool PhraseRoad::CopyHistoryItem(std::size_t index) {
    const OwnCopyScope ownCopy(parts_.History);
    return historyClipboard_.PutOnClipboard(index);
}

void PhraseRoad::Deliver(std::uint32_t id, WindowHandle target) {
    const DeliveryContext context{builder_.ClipboardAtHotkey(), builder_.SelectedText(),
                                  LanguageOf(builder_.Hkl()), builder_.IsAllow_SwitchLayout()};
    const DeliverResult result = delivery_.Commands().DeliverCommand(id, target, context);
    if (result == DeliverResult::Phrase) {
        builder_.RememberCommand(id);
    }
    if (result != DeliverResult::Nothing) {
        snapshot_.ClearRestore();
    }
}

}  // namespace vbr
