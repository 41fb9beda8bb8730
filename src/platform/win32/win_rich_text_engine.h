// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <string_view>

#include "platform/log.h"
#include "platform/rich_text_engine.h"
#include "platform/win32/handle.h"

namespace vbr {

// One hidden rich edit control, made on first use. A control that can't be made is logged, and
// every source fails to load. A control that faults is logged and given up: the document is gone,
// and the next source gets a new one. A source that is too large, or takes longer than the patience
// to load, is logged and refused.
class WinRichTextEngine : public RichTextEngine {
  public:
    explicit WinRichTextEngine(Log& log,
                               std::chrono::milliseconds patience = std::chrono::seconds(3))
        : log_(log), patience_(patience) {}
    ~WinRichTextEngine() override;
    WinRichTextEngine(const WinRichTextEngine&) = delete;
    WinRichTextEngine& operator=(const WinRichTextEngine&) = delete;

    bool LoadSource(std::u16string_view source) override;
    bool LoadSourceInCase(std::u16string_view source, LetterCase letterCase) override;
    std::optional<std::u16string> SaveSource() const override;
    std::optional<std::u16string> SaveRange(RichRange range) const override;
    std::u16string PlainText() const override;
    std::optional<std::u16string> Text() const override;
    std::size_t Length() const override;
    std::optional<std::size_t> Find(std::u16string_view what, std::size_t from,
                                    std::size_t to = kDocumentEnd) const override;
    void ReplaceRange(RichRange range, std::u16string_view with) override;
    std::optional<TextColor> ColorOf(RichRange range) const override;
    void SetColor(RichRange range, TextColor color) override;
    void ClearEffects() override;
    std::size_t SameFormatEnd(RichRange range) const override;
    std::u16string FromCodePage(std::string_view bytes, std::uint32_t codePage) const override;

  private:
    // What is left of a source, and when its load is to be given up.
    struct Incoming;

    static DWORD CALLBACK ReadBytes(DWORD_PTR cookie, LPBYTE buffer, LONG wanted, LONG* got);
    bool MakeControl();
    bool MakeEmptyControl();
    void SetPlainFormat();
    void GiveUp() const;
    LRESULT Send(UINT message, WPARAM wParam, LPARAM lParam) const;
    template <typename Parameter>
    LRESULT Send(UINT message, WPARAM wParam, Parameter* parameter) const {
        return Send(message, wParam, reinterpret_cast<LPARAM>(parameter));
    }
    std::optional<std::string> StreamOut(WPARAM format) const;
    void Select(RichRange range) const;

    Log& log_;
    std::chrono::milliseconds patience_;
    mutable bool tried_ = false;
    bool comReady_ = false;
    UniqueLibrary library_;
    mutable UniqueWindow control_;
};

}  // namespace vbr
