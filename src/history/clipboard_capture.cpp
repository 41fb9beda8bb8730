// SPDX-License-Identifier: MIT
#include "history/clipboard_capture.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "history/owner_info.h"
#include "history/source_url.h"

namespace vbr {
namespace {

// Other programs that follow the clipboard look at it at the same moment, each for an instant.

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

std::unique_ptr<CCHItem> ClipboardCapture::Capture(WindowHandle owner) {
    Log& log = with_.Log;
    if (with_.MyCopy.IsMyCopy()) {
        log.Write(u"My copy process detected");
        return nullptr;
    }
    auto item = std::make_unique<CCHItem>(CHF_UNICODE_TEXT, owner, with_.Clock.LocalTime());
    {
        const std::unique_ptr<ClipboardSession> clipboard = with_.Access.Open(kClipboardPatienceMs);
        if (!clipboard) {
            log.LogError(u"Clipboard not captured: another program holds it");
            return nullptr;
        }
        if (IsSecret(*clipboard)) {
            log.Write(u"Clipboard not captured: its owner asks to leave it alone");
            return nullptr;
        }
        htmlBlock_ = ReadText(*clipboard, html_);
        const bool read = ReadPrimary(*clipboard, *item);
        if (!read || !IsKept(item->format)) {
            htmlBlock_.reset();
            log.Write(Concat(u"Clipboard not captured: ",
                             std::u16string_view(read ? u"its format is off"
                                                      : u"it gives nothing that is kept")));
            return nullptr;
        }
        ReadAlternatives(*clipboard, *item);
    }
    ReadOwnerInfo(*item, with_.Windows, log);
    return item;
}

bool ClipboardCapture::IsSecret(const ClipboardSession& clipboard) const {
    const ClipboardAccess& access = with_.Access;
    if (std::any_of(ignoredWith_.begin(), ignoredWith_.end(),
                    [&](std::uint32_t format) { return access.IsFormatAvailable(format); })) {
        return true;
    }
    if (!access.IsFormatAvailable(mayBeKept_)) {
        return false;
    }
    const auto answer = clipboard.Read(mayBeKept_);
    return answer && !answer->Bytes.empty() && NumberIn(answer->Bytes) == 0;
}

bool ClipboardCapture::ReadPrimary(const ClipboardSession& clipboard, CCHItem& item) const {
    const ClipboardAccess& access = with_.Access;
    const auto take = [&item](ItemFormat format, std::optional<ItemBytes> bytes) {
        if (bytes) {
            item.format = format;
            item.SetData(std::move(*bytes));
        }
        return bytes.has_value();
    };
    if (take(CHF_KELPNOTES, ReadBytes(clipboard, kelpNotes_))) {
        return true;
    }
    if (access.IsFormatAvailable(kClipBitmap)) {
        const auto block = clipboard.Read(kClipBitmap);
        item.format = CHF_BITMAP;
        item.SetPicture(block ? with_.Bitmaps.FromObject(block->Object) : nullptr);
        TakeSourceUrl(item, {});
        return item.Picture() != nullptr;
    }
    if (take(CHF_RTF, ReadText(clipboard, rtf_))) {
        TakeSourceUrl(item, {});
        return true;
    }
    if (take(CHF_UNICODE_TEXT, ReadText(clipboard, kClipUnicodeText))) {
        TakeSourceUrl(item, item.WideText());
        return true;
    }
    return ReadAnsi(clipboard, item);
}

bool ClipboardCapture::ReadAnsi(const ClipboardSession& clipboard, CCHItem& item) const {
    const std::optional<ItemBytes> bytes = ReadText(clipboard, kClipText);
    const std::u16string text =
        bytes
            ? with_.Ansi.FromAnsi({reinterpret_cast<const char*>(bytes->data()), bytes->size() - 1})
            : std::u16string();
    if (text.empty()) {
        return false;
    }
    if (const auto locale = clipboard.Read(kClipLocale)) {
        item.locale = NumberIn(locale->Bytes);
    }
    item.format = CHF_UNICODE_TEXT;
    item.SetData(TextBytes(text));
    TakeSourceUrl(item, text);
    return true;
}

void ClipboardCapture::ReadAlternatives(const ClipboardSession& clipboard, CCHItem& item) const {
    const auto add = [&item](ItemFormat format, std::optional<ItemBytes> bytes) {
        if (bytes) {
            auto alternative = std::make_shared<CCHItem>(format, 0, item.time);
            alternative->SetData(std::move(*bytes));
            item.alternatives.push_back(std::move(alternative));
        }
    };
    if (item.format != CHF_RTF) {
        add(CHF_RTF, ReadText(clipboard, rtf_));
    }
    std::optional<ItemBytes> html = std::exchange(htmlBlock_, std::nullopt);
    if (IsKept(CHF_HTML)) {
        add(CHF_HTML, std::move(html));
    }
}

std::optional<ItemBytes> ClipboardCapture::ReadBytes(const ClipboardSession& clipboard,
                                                     std::uint32_t format) const {
    if (!with_.Access.IsFormatAvailable(format)) {
        return std::nullopt;
    }
    auto block = clipboard.Read(format);
    if (!block || block->Bytes.empty()) {
        with_.Log.LogError(Concat(u"Clipboard format ", format, u" gives no data"));
        return std::nullopt;
    }
    return std::move(block->Bytes);
}

std::optional<ItemBytes> ClipboardCapture::ReadText(const ClipboardSession& clipboard,
                                                    std::uint32_t format) const {
    std::optional<ItemBytes> bytes = ReadBytes(clipboard, format);
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

void ClipboardCapture::TakeSourceUrl(CCHItem& item, std::u16string_view text) const {
    if (htmlBlock_) {
        item.sourceUrl = SourceUrlOfHtml(
            {reinterpret_cast<const char*>(htmlBlock_->data()), htmlBlock_->size() - 1});
    }
    if (item.sourceUrl.empty()) {
        item.sourceUrl = TextAsUrl(text);
    }
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
