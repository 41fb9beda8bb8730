// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <memory>
#include <type_traits>

#include "platform/log.h"
#include "platform/rich_text_engine.h"

namespace vbr {

// One hidden rich edit control, made on first use. A control that can't be made is logged, and
// every source fails to load. A control that faults is logged and given up: the document is gone,
// and the next source gets a new one.
class WinRichTextEngine : public RichTextEngine {
  public:
    explicit WinRichTextEngine(Log& log) : log_(log) {}
    ~WinRichTextEngine() override;
    WinRichTextEngine(const WinRichTextEngine&) = delete;
    WinRichTextEngine& operator=(const WinRichTextEngine&) = delete;

    bool LoadSource(std::u16string_view source) override;
    std::optional<std::u16string> SaveSource() const override;
    std::u16string PlainText() const override;
    std::size_t Length() const override;
    std::optional<std::size_t> Find(std::u16string_view what, std::size_t from) const override;
    void ReplaceRange(RichRange range, std::u16string_view with) override;
    std::optional<TextColor> ColorOf(RichRange range) const override;
    void SetColor(RichRange range, TextColor color) override;

  private:
    struct LibraryFreer {
        using pointer = HMODULE;
        void operator()(HMODULE library) const { FreeLibrary(library); }
    };
    struct WindowDestroyer {
        using pointer = HWND;
        void operator()(HWND window) const { DestroyWindow(window); }
    };

    bool MakeControl();
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
    mutable bool tried_ = false;
    bool comReady_ = false;
    std::unique_ptr<std::remove_pointer_t<HMODULE>, LibraryFreer> library_;
    mutable std::unique_ptr<std::remove_pointer_t<HWND>, WindowDestroyer> control_;
};

}  // namespace vbr
