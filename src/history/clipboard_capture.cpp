// SPDX-License-Identifier: MIT
#include "history/clipboard_capture.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "history/owner_info.h"
#include "history/source_url.h"

namespace vbr {
namespace {

// The position of the text's end, counted in units of that many bytes.
std::size_t TextLength(const ItemBytes& bytes, std::size_t unit) {
    const auto* data = reinterpret_cast<const char*>(bytes.data());
    const std::size_t units = bytes.size() / unit;
    return unit == 1 ? std::min(std::string_view(data, units).find('\0'), units)
                     : LengthToZero({reinterpret_cast<const char16_t*>(data), units});
}

std::uint32_t NumberIn(const std::vector<std::byte>& bytes) {
    std::uint32_t number = 0;
    std::memcpy(&number, bytes.data(), std::min(bytes.size(), sizeof number));
    return number;
}

}  // namespace

ClipboardCapture::ClipboardCapture(Collaborators with)
    : with_(std::move(with)),
      rtf_(with_.Access.RegisterFormat(kRichTextFormat)),
      html_(with_.Access.RegisterFormat(kHtmlFormat)),
      kelpNotes_(with_.Access.RegisterFormat(kKelpNotesFormat)),
      ignoredWith_{
          with_.Access.RegisterFormat(kNotForMonitorsFormat),
          with_.Access.RegisterFormat(kNotForViewersFormat),
      },
      mayBeKept_(with_.Access.RegisterFormat(kMayBeKeptFormat)) {}

CaptureResult ClipboardCapture::Capture(WindowHandle owner, std::uint32_t patienceMs) {
    CaptureResult result{.Outcome = CaptureOutcome::NotKept,
                         .Item = nullptr,
                         .Number = with_.Access.SequenceNumber()};
    const auto end = [&result](CaptureOutcome outcome) {
        result.Outcome = outcome;
        return std::move(result);
    };
    if (with_.MyCopy.IsMyCopy()) {
        return end(CaptureOutcome::OwnUnderWay);
    }
    auto item = std::make_unique<CCHItem>(CHF_UNICODE_TEXT, owner, with_.Clock.LocalTime());
    {
        const std::unique_ptr<ClipboardSession> clipboard = with_.Access.Open(0);
        if (!clipboard) {
            return end(CaptureOutcome::InUse);
        }
        // Nobody changes it from here on.
        result.Number = with_.Access.SequenceNumber();
        if (with_.MyCopy.IsOwnContent()) {
            with_.Log.Write(u"My copy process detected");
            return end(CaptureOutcome::OwnCopy);
        }
        Reading reading{.Clipboard = *clipboard, .Item = *item, .PatienceMs = patienceMs};
        const bool isSecret = IsSecret(reading);
        const bool isRead = !isSecret && ReadPrimary(reading);
        if (isRead) {
            ReadAlternatives(reading);
        }
        if (reading.OwnerHangs) {
            return end(CaptureOutcome::OwnerHangs);
        }
        if (!isRead) {
            with_.Log.Write(
                Concat(u"Clipboard not captured: ",
                       std::u16string_view(isSecret           ? u"its owner asks to leave it alone"
                                           : reading.IsAnyOff ? u"its format is off"
                                                              : u"it gives nothing that is kept")));
            return end(CaptureOutcome::NotKept);
        }
    }
    ReadOwnerInfo(*item, with_.Windows, with_.Log);
    result.Item = std::move(item);
    return end(CaptureOutcome::Captured);
}

bool ClipboardCapture::IsSecret(Reading& reading) const {
    const ClipboardAccess& access = with_.Access;
    if (std::any_of(ignoredWith_.begin(), ignoredWith_.end(),
                    [&](std::uint32_t format) { return access.IsFormatAvailable(format); })) {
        return true;
    }
    // An answer that can't be read is taken for a no.
    if (!access.IsFormatAvailable(mayBeKept_)) {
        return false;
    }
    const auto answer = ReadBlock(reading, mayBeKept_);
    return !answer || answer->Bytes.empty() || NumberIn(answer->Bytes) == 0;
}

bool ClipboardCapture::ReadPrimary(Reading& reading) const {
    reading.Html = ReadText(reading, html_);
    if (ReadKelpNotes(reading)) {
        return true;
    }
    // A picture that is copied alone; a spreadsheet or a text program gives one beside its text.
    const bool isPicture = with_.Access.IsFormatAvailable(kClipBitmap) && !HasPlainText(reading);
    return (isPicture && ReadBitmap(reading)) || ReadRich(reading) || ReadUnicode(reading) ||
           ReadAnsi(reading) || (!isPicture && ReadBitmap(reading));
}

bool ClipboardCapture::ReadKelpNotes(Reading& reading) const {
    auto bytes = IsWanted(reading, kelpNotes_, CHF_KELPNOTES) ? ReadBytes(reading, kelpNotes_)
                                                              : std::nullopt;
    if (bytes) {
        reading.Item.format = CHF_KELPNOTES;
        reading.Item.SetData(std::move(*bytes));
    }
    return bytes.has_value();
}

bool ClipboardCapture::ReadBitmap(Reading& reading) const {
    const auto block =
        IsWanted(reading, kClipBitmap, CHF_BITMAP) ? ReadBlock(reading, kClipBitmap) : std::nullopt;
    auto picture = block ? with_.Bitmaps.FromObject(block->Object) : nullptr;
    if (!picture) {
        return false;
    }
    reading.Item.format = CHF_BITMAP;
    reading.Item.SetPicture(std::move(picture));
    TakeSourceUrl(reading, {});
    return true;
}

bool ClipboardCapture::ReadRich(Reading& reading) const {
    auto bytes = IsWanted(reading, rtf_, CHF_RTF) ? ReadText(reading, rtf_) : std::nullopt;
    if (bytes) {
        reading.Item.format = CHF_RTF;
        reading.Item.SetData(std::move(*bytes));
        TakeSourceUrl(reading, {});
    }
    return bytes.has_value();
}

bool ClipboardCapture::ReadUnicode(Reading& reading) const {
    if (!IsWanted(reading, kClipUnicodeText, CHF_UNICODE_TEXT)) {
        return false;
    }
    auto bytes = reading.Text ? std::exchange(reading.Text, std::nullopt)
                              : ReadText(reading, kClipUnicodeText);
    if (bytes) {
        reading.Item.format = CHF_UNICODE_TEXT;
        reading.Item.SetData(std::move(*bytes));
        TakeSourceUrl(reading, reading.Item.WideText());
    }
    return bytes.has_value();
}

bool ClipboardCapture::ReadAnsi(Reading& reading) const {
    const std::u16string text =
        IsWanted(reading, kClipText, CHF_ANSI_TEXT) ? AnsiTextOf(reading) : std::u16string();
    if (text.empty()) {
        return false;
    }
    if (const auto locale = ReadBlock(reading, kClipLocale)) {
        reading.Item.locale = NumberIn(locale->Bytes);
    }
    reading.Item.format = CHF_UNICODE_TEXT;
    reading.Item.SetData(TextBytes(text));
    TakeSourceUrl(reading, text);
    return true;
}

bool ClipboardCapture::HasPlainText(Reading& reading) const {
    constexpr std::u16string_view kBlank = u" \t\r\n\u00A0";
    reading.Text = ReadText(reading, kClipUnicodeText);
    const std::u16string ansi = reading.Text ? std::u16string() : AnsiTextOf(reading);
    const std::u16string_view text =
        reading.Text ? std::u16string_view(reinterpret_cast<const char16_t*>(reading.Text->data()),
                                           reading.Text->size() / sizeof(char16_t) - 1)
                     : ansi;
    return text.find_first_not_of(kBlank) != text.npos;
}

std::u16string ClipboardCapture::AnsiTextOf(Reading& reading) const {
    const std::optional<ItemBytes> bytes = ReadText(reading, kClipText);
    return bytes ? with_.Ansi.FromAnsi(
                       {reinterpret_cast<const char*>(bytes->data()), bytes->size() - 1})
                 : std::u16string();
}

void ClipboardCapture::ReadAlternatives(Reading& reading) const {
    CCHItem& item = reading.Item;
    const auto add = [&item](ItemFormat format, std::optional<ItemBytes> bytes) {
        if (bytes) {
            auto alternative = std::make_shared<CCHItem>(format, 0, item.time);
            alternative->SetData(std::move(*bytes));
            item.alternatives.push_back(std::move(alternative));
        }
    };
    if (item.format != CHF_RTF) {
        add(CHF_RTF, ReadText(reading, rtf_));
    }
    if (IsKept(CHF_HTML)) {
        add(CHF_HTML, std::move(reading.Html));
    }
}

// An owner that hangs would make the reader wait for many seconds, for each format anew.
std::optional<ClipboardBlock> ClipboardCapture::ReadBlock(Reading& reading,
                                                          std::uint32_t format) const {
    if (reading.OwnerHangs || !with_.Access.IsFormatAvailable(format)) {
        return std::nullopt;
    }
    reading.OwnerHangs = !reading.Clipboard.DoesOwnerAnswer(reading.PatienceMs);
    if (reading.OwnerHangs) {
        return std::nullopt;
    }
    auto block = reading.Clipboard.Read(format);
    if (!block) {
        with_.Log.LogError(Concat(u"Clipboard format ", format, u" gives no data"));
    }
    return block;
}

std::optional<ItemBytes> ClipboardCapture::ReadBytes(Reading& reading, std::uint32_t format) const {
    auto block = ReadBlock(reading, format);
    return block && !block->Bytes.empty() ? std::optional(std::move(block->Bytes)) : std::nullopt;
}

std::optional<ItemBytes> ClipboardCapture::ReadText(Reading& reading, std::uint32_t format) const {
    std::optional<ItemBytes> bytes = ReadBytes(reading, format);
    const std::size_t unit = format == kClipUnicodeText ? sizeof(char16_t) : 1;
    const std::size_t length = bytes ? TextLength(*bytes, unit) : 0;
    if (length == 0) {
        return std::nullopt;
    }
    // What stands behind the terminator goes; where there was none, zeros come.
    bytes->resize(length * unit);
    bytes->resize((length + 1) * unit);
    return bytes;
}

void ClipboardCapture::TakeSourceUrl(Reading& reading, std::u16string_view text) const {
    CCHItem& item = reading.Item;
    if (reading.Html) {
        item.sourceUrl = SourceUrlOfHtml(
            {reinterpret_cast<const char*>(reading.Html->data()), reading.Html->size() - 1});
    }
    if (item.sourceUrl.empty()) {
        item.sourceUrl = TextAsUrl(text);
    }
}

bool ClipboardCapture::IsWanted(Reading& reading, std::uint32_t format, ItemFormat kind) const {
    if (!with_.Access.IsFormatAvailable(format)) {
        return false;
    }
    const bool isKept = IsKept(kind);
    reading.IsAnyOff = reading.IsAnyOff || !isKept;
    return isKept;
}

bool ClipboardCapture::IsKept(ItemFormat format) const {
    switch (format) {
        case CHF_RTF:
            return with_.Kept[1];
        case CHF_BITMAP:
            return with_.Kept[2];
        case CHF_KELPNOTES:
            return with_.Kept[3];
        case CHF_HTML:
            return with_.Kept[4];
        default:
            return with_.Kept[0];
    }
}

}  // namespace vbr
