// SPDX-License-Identifier: MIT
#include "platform/win32/win_rich_text_engine.h"

#include <algorithm>
#include <commdlg.h>
#include <cstring>
#include <limits>
#include <objbase.h>
#include <richedit.h>

#include "platform/rich_source.h"
#include "platform/win32/system_library.h"
#include "platform/win32/wide.h"
#include "platform/win32/win_fault_catcher.h"

namespace vbr {
namespace {

constexpr UINT kUtf16 = 1200;
constexpr LONG kTwelvePoints = 240;  // in twentieths of a point
constexpr DWORD kCaseStyles = SES_UPPERCASE | SES_LOWERCASE;
constexpr std::size_t kMaxBytes = std::numeric_limits<int>::max();
constexpr DWORD kTookTooLong = ERROR_TIMEOUT;
// A control may clear a document in a time that grows with the square of its lines; a new control
// costs some milliseconds.
constexpr std::size_t kFewUnits = 4'000;
constexpr LRESULT kFewLines = 100;

DWORD CALLBACK AppendBytes(DWORD_PTR cookie, LPBYTE buffer, LONG count, LONG* taken) {
    reinterpret_cast<std::string*>(cookie)->append(reinterpret_cast<const char*>(buffer),
                                                   static_cast<std::size_t>(count));
    *taken = count;
    return 0;
}

std::optional<std::u16string> Widened(const std::optional<std::string>& bytes) {
    if (!bytes) {
        return std::nullopt;
    }
    std::u16string source(bytes->size(), u'\0');
    std::transform(bytes->begin(), bytes->end(), source.begin(), [](char byte) {
        return static_cast<char16_t>(static_cast<unsigned char>(byte));
    });
    return source;
}

}  // namespace

struct WinRichTextEngine::Incoming {
    std::string_view Rest;
    std::chrono::steady_clock::time_point Deadline;
};

DWORD CALLBACK WinRichTextEngine::ReadBytes(DWORD_PTR cookie, LPBYTE buffer, LONG wanted,
                                            LONG* got) {
    auto& incoming = *reinterpret_cast<Incoming*>(cookie);
    if (std::chrono::steady_clock::now() > incoming.Deadline) {
        *got = 0;
        return kTookTooLong;
    }
    const std::size_t count =
        std::min(incoming.Rest.size(), static_cast<std::size_t>(std::max<LONG>(wanted, 0)));
    std::memcpy(buffer, incoming.Rest.data(), count);
    incoming.Rest.remove_prefix(count);
    *got = static_cast<LONG>(count);
    return 0;
}

WinRichTextEngine::~WinRichTextEngine() {
    control_.reset();
    library_.reset();
    if (comReady_) {
        CoUninitialize();
    }
}

bool WinRichTextEngine::LoadSource(std::u16string_view source) {
    if (!MakeEmptyControl()) {
        return false;
    }
    const std::string bytes = ToRichBytes(source);
    if (!IsSafeRich(bytes)) {
        return false;
    }
    if (RichTextSize(bytes) > kMaxRichText) {
        log_.LogError(Concat(u"Formatted text of ", bytes.size(), u" bytes is too large to load"));
        return false;
    }
    Incoming incoming{bytes, std::chrono::steady_clock::now() + patience_};
    EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&incoming), 0, ReadBytes};
    Send(EM_STREAMIN, SF_RTF, &stream);
    if (stream.dwError == 0) {
        return control_ != nullptr;
    }
    if (stream.dwError == kTookTooLong) {
        log_.LogError(
            Concat(u"Formatted text of ", bytes.size(), u" bytes takes too long to load"));
    }
    MakeEmptyControl();
    return false;
}

bool WinRichTextEngine::LoadSourceInCase(std::u16string_view source, LetterCase letterCase) {
    if (!MakeEmptyControl()) {
        return false;
    }
    const auto before = static_cast<LPARAM>(Send(EM_GETEDITSTYLE, 0, 0)) & kCaseStyles;
    Send(EM_SETEDITSTYLE, letterCase == LetterCase::Upper ? SES_UPPERCASE : SES_LOWERCASE,
         LPARAM{kCaseStyles});
    const bool loaded = LoadSource(source);
    Send(EM_SETEDITSTYLE, static_cast<WPARAM>(before), LPARAM{kCaseStyles});
    return loaded;
}

std::optional<std::u16string> WinRichTextEngine::SaveSource() const {
    return Widened(StreamOut(SF_RTF));
}

std::optional<std::u16string> WinRichTextEngine::SaveRange(RichRange range) const {
    Select(range);
    return Widened(StreamOut(SF_RTF | SFF_SELECTION));
}

std::u16string WinRichTextEngine::PlainText() const {
    const std::string bytes = StreamOut(SF_TEXT | SF_UNICODE).value_or(std::string());
    std::u16string text(bytes.size() / sizeof(char16_t), u'\0');
    std::memcpy(text.data(), bytes.data(), text.size() * sizeof(char16_t));
    return text;
}

std::optional<std::u16string> WinRichTextEngine::Text() const {
    const std::size_t length = Length();
    std::u16string text(length + 1, u'\0');
    GETTEXTEX form{static_cast<DWORD>(text.size() * sizeof(char16_t)), GT_DEFAULT, kUtf16, nullptr,
                   nullptr};
    const LRESULT units = Send(EM_GETTEXTEX, reinterpret_cast<WPARAM>(&form), text.data());
    // Some versions count the terminator.
    const bool isWhole = units == static_cast<LRESULT>(length) ||
                         (units == static_cast<LRESULT>(length) + 1 && text[length] == u'\0');
    if (!control_ || !isWhole) {
        return std::nullopt;
    }
    text.resize(length);
    return text;
}

std::size_t WinRichTextEngine::Length() const {
    GETTEXTLENGTHEX form{GTL_NUMCHARS | GTL_PRECISE, kUtf16};
    const LRESULT length = Send(EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&form), 0);
    return static_cast<std::size_t>(std::max<LRESULT>(length, 0));
}

std::optional<std::size_t> WinRichTextEngine::Find(std::u16string_view what, std::size_t from,
                                                   std::size_t to) const {
    const std::u16string wanted(what);
    FINDTEXTEXW find{{static_cast<LONG>(from), static_cast<LONG>(to)}, Wide(wanted), {}};
    const LRESULT position = Send(EM_FINDTEXTEXW, FR_DOWN | FR_MATCHCASE, &find);
    if (!control_ || position < 0) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(position);
}

void WinRichTextEngine::ReplaceRange(RichRange range, std::u16string_view with) {
    Select(range);
    const std::u16string text(with);
    Send(EM_REPLACESEL, FALSE, Wide(text));
}

std::optional<TextColor> WinRichTextEngine::ColorOf(RichRange range) const {
    Select(range);
    CHARFORMAT2W format{};
    format.cbSize = sizeof format;
    Send(EM_GETCHARFORMAT, SCF_SELECTION, &format);
    if ((format.dwMask & CFM_COLOR) == 0) {
        return std::nullopt;
    }
    const bool automatic = (format.dwEffects & CFE_AUTOCOLOR) != 0;
    return TextColor{automatic, automatic ? 0 : static_cast<std::uint32_t>(format.crTextColor)};
}

void WinRichTextEngine::SetColor(RichRange range, TextColor color) {
    Select(range);
    CHARFORMAT2W format{};
    format.cbSize = sizeof format;
    format.dwMask = CFM_COLOR;
    format.dwEffects = color.Automatic ? CFE_AUTOCOLOR : 0;
    format.crTextColor = color.Rgb;
    Send(EM_SETCHARFORMAT, SCF_SELECTION, &format);
}

void WinRichTextEngine::ClearEffects() {
    Select({0, kDocumentEnd});
    CHARFORMAT2W format{};
    format.cbSize = sizeof format;
    format.dwMask = CFM_EFFECTS;
    Send(EM_SETCHARFORMAT, SCF_SELECTION, &format);
}

std::size_t WinRichTextEngine::SameFormatEnd(RichRange range) const {
    // A property that a selection has in more than one form is left out of the mask.
    const auto maskUpTo = [&](std::size_t end) {
        Select({range.Start, end});
        CHARFORMAT2W format{};
        format.cbSize = sizeof format;
        Send(EM_GETCHARFORMAT, SCF_SELECTION, &format);
        return format.dwMask;
    };
    const DWORD one = maskUpTo(range.Start + 1);
    if (range.End <= range.Start + 1 || maskUpTo(range.End) == one) {
        return range.End;
    }
    std::size_t same = range.Start + 1;
    std::size_t different = range.End;
    while (different - same > 1) {
        const std::size_t middle = same + (different - same) / 2;
        (maskUpTo(middle) == one ? same : different) = middle;
    }
    return same;
}

bool WinRichTextEngine::MakeEmptyControl() {
    if (control_ && (Length() > kFewUnits || Send(EM_GETLINECOUNT, 0, 0) > kFewLines)) {
        control_.reset();
        tried_ = false;
    } else {
        Send(WM_SETTEXT, 0, L"");
    }
    return MakeControl();
}

bool WinRichTextEngine::MakeControl() {
    if (tried_) {
        return control_ != nullptr;
    }
    tried_ = true;
    if (!comReady_) {
        comReady_ = SUCCEEDED(CoInitialize(nullptr));
    }
    library_ = LoadSystemLibrary(L"RichEd20.DLL");
    if (library_) {
        control_.reset(CreateWindowExW(0, L"RICHEDIT20W", L"",
                                       WS_CHILD | ES_MULTILINE | ES_WANTRETURN, 1, 1, 10, 10,
                                       HWND_MESSAGE, nullptr, nullptr, nullptr));
    }
    if (!control_) {
        log_.LogError(Concat(u"Cannot make the rich text control, error ", GetLastError()));
        return false;
    }
    Send(EM_SETEVENTMASK, 0, 0);
    Send(EM_EXLIMITTEXT, 0, std::numeric_limits<LONG>::max());
    Send(EM_SETUNDOLIMIT, 0, 0);
    // Breaking a large text into lines ten pixels wide takes most of the time of a load.
    Send(EM_SETTARGETDEVICE, 0, 1);
    SetPlainFormat();
    return true;
}

// What a source leaves open comes from the control's own format, which is bold in the system font.
// These are the values that Rich Text Format itself starts from.
void WinRichTextEngine::SetPlainFormat() {
    CHARFORMAT2W format{};
    format.cbSize = sizeof format;
    format.dwMask = CFM_EFFECTS | CFM_SIZE | CFM_FACE | CFM_CHARSET | CFM_WEIGHT;
    format.dwEffects = CFE_AUTOCOLOR;
    format.yHeight = kTwelvePoints;
    format.wWeight = FW_NORMAL;
    lstrcpynW(format.szFaceName, L"Times New Roman", LF_FACESIZE);
    Send(EM_SETCHARFORMAT, SCF_DEFAULT, &format);
}

// An end beyond the text is that of the last paragraph.
void WinRichTextEngine::Select(RichRange range) const {
    constexpr std::size_t kMost = std::numeric_limits<LONG>::max();
    CHARRANGE selection{static_cast<LONG>(range.Start),
                        static_cast<LONG>(std::min(range.End, kMost))};
    Send(EM_EXSETSEL, 0, &selection);
}

std::u16string WinRichTextEngine::FromCodePage(std::string_view bytes,
                                               std::uint32_t codePage) const {
    const UINT page = IsValidCodePage(codePage) ? codePage : CP_ACP;
    const int size = static_cast<int>(std::min(bytes.size(), kMaxBytes));
    std::u16string text(bytes.size(), u'\0');
    const int units = MultiByteToWideChar(page, 0, bytes.data(), size, Wide(text.data()), size);
    text.resize(static_cast<std::size_t>(std::max(units, 0)));
    return text;
}

// The control may run over a source that is broken in a way it doesn't expect.
LRESULT WinRichTextEngine::Send(UINT message, WPARAM wParam, LPARAM lParam) const {
    if (!control_) {
        return 0;
    }
    LRESULT result = 0;
    const auto fault = WinFaultCatcher().Run(
        [&] { result = SendMessageW(control_.get(), message, wParam, lParam); });
    if (!fault) {
        return result;
    }
    log_.LogError(Concat(u"Rich text control failed, code ", *fault));
    GiveUp();
    return 0;
}

// The window goes without a word to the control's own code, whose state can't be trusted.
void WinRichTextEngine::GiveUp() const {
    SetWindowLongPtrW(control_.get(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(DefWindowProcW));
    control_.reset();
    tried_ = false;
}

std::optional<std::string> WinRichTextEngine::StreamOut(WPARAM format) const {
    std::string bytes;
    EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&bytes), 0, AppendBytes};
    Send(EM_STREAMOUT, format, &stream);
    return control_ && stream.dwError == 0 ? std::optional(std::move(bytes)) : std::nullopt;
}

}  // namespace vbr
