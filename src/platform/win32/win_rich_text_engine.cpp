// SPDX-License-Identifier: MIT
#include "platform/win32/win_rich_text_engine.h"

#include <algorithm>
#include <commdlg.h>
#include <cstring>
#include <limits>
#include <objbase.h>
#include <richedit.h>

#include "platform/rich_source.h"
#include "platform/win32/wide.h"
#include "platform/win32/win_fault_catcher.h"

namespace vbr {
namespace {

constexpr UINT kUtf16 = 1200;
constexpr LONG kTwelvePoints = 240;  // in twentieths of a point

DWORD CALLBACK ReadBytes(DWORD_PTR cookie, LPBYTE buffer, LONG wanted, LONG* got) {
    auto& rest = *reinterpret_cast<std::string_view*>(cookie);
    const std::size_t count = std::min(rest.size(), static_cast<std::size_t>(wanted));
    std::memcpy(buffer, rest.data(), count);
    rest.remove_prefix(count);
    *got = static_cast<LONG>(count);
    return 0;
}

DWORD CALLBACK AppendBytes(DWORD_PTR cookie, LPBYTE buffer, LONG count, LONG* taken) {
    reinterpret_cast<std::string*>(cookie)->append(reinterpret_cast<const char*>(buffer),
                                                   static_cast<std::size_t>(count));
    *taken = count;
    return 0;
}

}  // namespace

WinRichTextEngine::~WinRichTextEngine() {
    control_.reset();
    library_.reset();
    if (comReady_) {
        CoUninitialize();
    }
}

bool WinRichTextEngine::LoadSource(std::u16string_view source) {
    if (!MakeControl()) {
        return false;
    }
    Send(WM_SETTEXT, 0, L"");
    const std::string bytes = ToRichBytes(source);
    if (!IsSafeRich(bytes)) {
        return false;
    }
    std::string_view rest = bytes;
    EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&rest), 0, ReadBytes};
    Send(EM_STREAMIN, SF_RTF, &stream);
    if (stream.dwError != 0) {
        Send(WM_SETTEXT, 0, L"");
        return false;
    }
    return control_ != nullptr;
}

std::optional<std::u16string> WinRichTextEngine::SaveSource() const {
    const auto bytes = StreamOut(SF_RTF);
    if (!bytes) {
        return std::nullopt;
    }
    std::u16string source(bytes->size(), u'\0');
    std::transform(bytes->begin(), bytes->end(), source.begin(), [](char byte) {
        return static_cast<char16_t>(static_cast<unsigned char>(byte));
    });
    return source;
}

std::u16string WinRichTextEngine::PlainText() const {
    const std::string bytes = StreamOut(SF_TEXT | SF_UNICODE).value_or(std::string());
    std::u16string text(bytes.size() / sizeof(char16_t), u'\0');
    std::memcpy(text.data(), bytes.data(), text.size() * sizeof(char16_t));
    return text;
}

std::size_t WinRichTextEngine::Length() const {
    GETTEXTLENGTHEX form{GTL_NUMCHARS | GTL_PRECISE, kUtf16};
    const LRESULT length = Send(EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&form), 0);
    return static_cast<std::size_t>(std::max<LRESULT>(length, 0));
}

std::optional<std::size_t> WinRichTextEngine::Find(std::u16string_view what,
                                                   std::size_t from) const {
    const std::u16string wanted(what);
    FINDTEXTEXW find{{static_cast<LONG>(from), -1}, Wide(wanted), {}};
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

bool WinRichTextEngine::MakeControl() {
    if (tried_) {
        return control_ != nullptr;
    }
    tried_ = true;
    if (!comReady_) {
        comReady_ = SUCCEEDED(CoInitialize(nullptr));
    }
    library_.reset(LoadLibraryW(L"RichEd20.DLL"));
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

void WinRichTextEngine::Select(RichRange range) const {
    CHARRANGE selection{static_cast<LONG>(range.Start), static_cast<LONG>(range.End)};
    Send(EM_EXSETSEL, 0, &selection);
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
