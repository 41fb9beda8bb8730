// SPDX-License-Identifier: MIT
#include "editor/win32/phrase_text_box.h"

#include <richedit.h>

#include "phrases/command_record.h"
#include "platform/rich_source.h"
#include "platform/win32/dialog_base.h"
#include "platform/win32/wide.h"

namespace vbr {
namespace {

constexpr int kMargin = 4;
constexpr LPARAM kMostChars = 0x7FFFFFF0;

struct RtfStream {
    std::string Bytes;
    std::size_t At = 0;
};

DWORD CALLBACK ReadRtf(DWORD_PTR cookie, LPBYTE buffer, LONG wanted, LONG* got) {
    auto& stream = *reinterpret_cast<RtfStream*>(cookie);
    const std::size_t count = stream.Bytes.copy(reinterpret_cast<char*>(buffer),
                                                static_cast<std::size_t>(wanted), stream.At);
    stream.At += count;
    *got = static_cast<LONG>(count);
    return 0;
}

DWORD CALLBACK WriteRtf(DWORD_PTR cookie, LPBYTE buffer, LONG count, LONG* taken) {
    reinterpret_cast<RtfStream*>(cookie)->Bytes.append(reinterpret_cast<const char*>(buffer),
                                                       static_cast<std::size_t>(count));
    *taken = count;
    return 0;
}

}  // namespace

void PhraseTextBox::Attach(HWND control) {
    control_ = control;
    Send(EM_EXLIMITTEXT, 0, kMostChars);
    Send(EM_SETEVENTMASK, 0, ENM_CHANGE);
    Send(EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(kMargin, kMargin));
}

// The control changes its mode only while it is empty.
void PhraseTextBox::Clear(std::int32_t kind) const {
    SetWindowTextW(control_, L"");
    Send(EM_SETTEXTMODE, kind == kDataTypeRtf ? TM_RICHTEXT : TM_PLAINTEXT);
}

void PhraseTextBox::Load(std::int32_t kind, const std::u16string& text) {
    Clear(kind);
    if (kind == kDataTypeRtf) {
        RtfStream source{ToRichBytes(text)};
        EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&source), 0, ReadRtf};
        Send(EM_STREAMIN, SF_RTF, reinterpret_cast<LPARAM>(&stream));
    } else {
        SetWindowTextW(control_, Wide(text));
    }
    Send(EM_EMPTYUNDOBUFFER);
    Send(EM_SETMODIFY, FALSE);
}

bool PhraseTextBox::IsModified() const {
    return Send(EM_GETMODIFY) != 0;
}

std::u16string PhraseTextBox::Text(std::int32_t kind) const {
    if (kind != kDataTypeRtf) {
        return WindowText(control_);
    }
    RtfStream source;
    EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&source), 0, WriteRtf};
    Send(EM_STREAMOUT, SF_RTF, reinterpret_cast<LPARAM>(&stream));
    std::u16string text;
    for (const char byte : source.Bytes) {
        text += static_cast<char16_t>(static_cast<unsigned char>(byte));
    }
    // The control ends what it writes with a zero.
    return text.substr(0, text.find(u'\0'));
}

void PhraseTextBox::ChangeKind(std::int32_t kind) {
    const std::u16string plain = WindowText(control_);
    Clear(kind);
    SetWindowTextW(control_, Wide(plain));
    Send(EM_SETMODIFY, TRUE);
}

void PhraseTextBox::Enable(bool on) {
    if ((IsWindowEnabled(control_) != 0) == on) {
        return;
    }
    EnableWindow(control_, on);
    Send(EM_SETBKGNDCOLOR, 0, static_cast<LPARAM>(GetSysColor(on ? COLOR_WINDOW : COLOR_BTNFACE)));
}

void PhraseTextBox::ToggleEffect(DWORD effect) {
    CHARFORMAT2W format{};
    format.cbSize = sizeof format;
    Send(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
    const bool isOn = (format.dwMask & effect) != 0 && (format.dwEffects & effect) != 0;
    format.dwMask = effect;
    format.dwEffects = isOn ? 0 : effect;
    Send(EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
    Send(EM_SETMODIFY, TRUE);
}

void PhraseTextBox::Insert(const std::u16string& text) {
    Send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(Wide(text)));
    SetFocus(control_);
}

}  // namespace vbr
