// SPDX-License-Identifier: MIT
#include "shell/tray_tips.h"

#include "base/file_time.h"
#include "base/text.h"
#include "base/version.h"
#include "menu/clip_tip.h"
#include "platform/clipboard_blocks.h"
#include "platform/clipboard_text.h"
#include "platform/date_forms.h"
#include "resources/resource_ids.h"

namespace vbr {
namespace {

constexpr FileTicks kTicksOfDay = FileTicks{24} * 60 * 60 * 10'000'000;
constexpr std::u16string_view kBreak = u"\r\n";
constexpr std::u16string_view kParagraph = u"\r\n\r\n";

std::u16string_view TrackingSetting(std::int32_t method) {
    switch (method) {
        case -1:
            return u"Automatically (AddClipboardListener is available, or SetClipboardViewer in "
                   u"other)";
        case 0:
            return u"SetClipboardViewer (for old version of Windows)";
        case 1:
            return u"AddClipboardListener (for Windows Vista or later)";
        default:
            return {};
    }
}

}  // namespace

std::optional<CommandTip> TrayTips::TipOf(std::uint32_t id) {
    if (const CCHItem* clip = with_.Clips.ItemOf(static_cast<int>(id))) {
        return CommandTip{ClipTip(*clip, with_.Items, with_.Locale, with_.Texts),
                          Text(kStrClipboardHistoryItem)};
    }
    CommandTip tip{.Text = TextOf(static_cast<int>(id)), .Title = {}};
    if (id == kCmdEditPhrases) {
        tip.Title = Concat(with_.Texts.GetCommandText(kMenuTray, kCmdEditPhrases), u" - [",
                           VersionText(), u"]");
    }
    return tip.Text.empty() ? std::nullopt : std::optional(std::move(tip));
}

// The string's first line.
std::u16string TrayTips::Base(int id) const {
    const std::u16string all = Text(id);
    return all.substr(0, all.find_first_of(u"\r\n"));
}

std::u16string TrayTips::OnOrOff(bool on) const {
    return Text(on ? kStrOn : kStrOff);
}

std::u16string TrayTips::TextOf(int id) {
    const CVBRSettings& settings = with_.Settings;
    switch (id) {
        case kCmdAbout:
            return Version();
        case kCmdCheckForUpdates:
            return Updates();
        case kCmdCopyInformation:
            return Text(kStrCopyAllInformation);
        case kCmdZipInformation:
            return Concat(Text(kStrZipLogAndSettings), kBreak, with_.Locations.LogFile, kBreak,
                          with_.Locations.SettingsFile);
        case kCmdUndo:
            return Concat(Base(id), u"\n\n   ", Text(kStrUndoPoolHint));
        case kCmdMenuOnMouseEvent:
            return Concat(Text(kStrMenuOnTripleLeftClick), u": ",
                          settings.GestureType == 0 ? Text(kStrOff) : Text(kStrOnTripleRightClick));
        case kCmdOpenSettingsFile:
            return Concat(Base(id), kBreak, Text(kStrCloseBeforeEditing), kParagraph,
                          with_.Locations.SettingsFile);
        case kCmdSaveHistoryOnExit:
            return Concat(Base(id), kBreak, Text(kStrFolder), u": ", with_.HistoryFolder);
        case kCmdStartWithWindows:
            return Concat(Base(id), kBreak, Text(kStrAutostartDelay), u": ",
                          settings.DelayAutoLoadSeconds, u" sec");
        case kCmdEditPhrases:
            return Concat(Base(id), u"\n\n", Tracking());
        case kCmdWriteLog:
            return Concat(Base(id), u"\r\n » ", with_.Locations.LogFile);
        case kCmdRunAsAdministrator:
            return Concat(Base(id), u"\r\n\r\n\t", Text(kStrRunAsAdministratorHint));
        case kCmdTogglePane:
            return Concat(Base(id), kParagraph, Text(kStrPaneByAltTabHint));
        case kCmdEnableService: {
            const CommandCounts counts = with_.Service.CountPhrases();
            return Concat(Base(id), u"\n", Text(kStrHotKey), u": ", with_.Service.HotkeyName(),
                          u"\n", Text(kStrPhrases), u": [", counts.Enabled, u"/", counts.Total,
                          u"]");
        }
        case kCmdRereadPhrases:
            return Concat(Base(id), kBreak, Text(kStrPhrasesFolder), u": ",
                          with_.Service.PhrasesFolder());
        case kCmdSavePhraseFromClipboard:
            return ClipboardContent();
        case kCmdKeepHistory:
            return Concat(Base(id), u": ", OnOrOff(with_.Commands.IsChecked(id)), kBreak,
                          Tracking());
        default: {
            const std::u16string address = with_.Commands.AddressOf(id);
            return address.empty() ? address : Concat(Base(id), u"\r\n\r\n » ", address);
        }
    }
}

std::u16string TrayTips::Version() const {
    const SystemTime released{.Year = static_cast<std::uint16_t>(kReleaseDate[0]),
                              .Month = static_cast<std::uint16_t>(kReleaseDate[1]),
                              .Day = static_cast<std::uint16_t>(kReleaseDate[2])};
    return Concat(Text(kStrVersionReleased), u": ",
                  FormatDateTime(DateTimeMode::DateWithoutWeekday, with_.Locale,
                                 with_.Locale.UserDefault(), released),
                  kBreak, Text(kStrLogMessages), u": ", with_.Messages.size());
}

std::u16string TrayTips::Updates() {
    const SystemTime last = with_.Settings.GetLastCheckForUpdates();
    std::u16string tip =
        Concat(Base(kCmdCheckForUpdates), u"\r\n\r\n   ", Text(kStrLastUpdateCheck), u": ",
               LocalDate(last, 0), u"\r\n   ", Text(kStrCheckAutomatically), u": ",
               OnOrOff(with_.Settings.AutoCheckForUpdates));
    if (with_.Settings.AutoCheckForUpdates) {
        tip += Concat(u"\r\n   ", Text(kStrNextCheck), u": ",
                      LocalDate(last, with_.Settings.GetDaysCheckForUpdates()));
    }
    return tip;
}

std::u16string TrayTips::LocalDate(const SystemTime& utc, std::uint32_t daysLater) const {
    const auto ticks = FileTicksOf(utc);
    const auto here = FileTicksOf(with_.Clock.LocalTime());
    const auto there = FileTicksOf(with_.Clock.UtcTime());
    if (!ticks || !here || !there) {
        return {};
    }
    const auto local = SystemTimeOf(*ticks + daysLater * kTicksOfDay + (*here - *there));
    return local ? FormatDateTime(DateTimeMode::DateTime, with_.Locale, with_.Locale.UserDefault(),
                                  *local)
                 : std::u16string();
}

std::u16string TrayTips::ClipboardContent() const {
    const std::u16string base = Base(kCmdSavePhraseFromClipboard);
    const auto session = with_.Clipboard.Open(0);
    const std::u16string text = session ? ReadAnyText(*session, with_.Ansi) : std::u16string();
    if (text.empty()) {
        return base;
    }
    const std::size_t end = text.find_first_of(u"\r\n\t");
    const bool isRich =
        with_.Clipboard.IsFormatAvailable(with_.Clipboard.RegisterFormat(kRichTextFormat));
    return Concat(base, kParagraph, Text(kStrContent), u": [",
                  std::u16string_view(text).substr(0, end), end == text.npos ? u"" : u"\r\n...",
                  u"]", kBreak, isRich ? u"RTF, " : u"", Text(kStrPlainText));
}

std::u16string TrayTips::Tracking() const {
    return Concat(u"Clipboard Tracking Method used: ", with_.TrackingMethod(),
                  u"\r\nClipboard Tracking Method setting: ",
                  TrackingSetting(with_.Settings.ClipboardSpyMethod));
}

}  // namespace vbr
