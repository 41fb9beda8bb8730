// SPDX-License-Identifier: MIT
#include "menu/win32/menu_tool_tip.h"

#include <commctrl.h>
#include <gtest/gtest.h>
#include <optional>

#include "fakes/fake_clock.h"
#include "platform/object_names.h"
#include "platform/win32/menu_handle.h"
#include "platform/win32/wide.h"
#include "windows/message_window.h"

namespace vbr {
namespace {

constexpr std::uint32_t kItem = 7;

class PlainTip : public CMenuToolTipTracked {
  public:
    using CMenuToolTipTracked::CMenuToolTipTracked;

    HICON GetCommandIcon(std::uint32_t) override { return nullptr; }
    void GetTipText(std::u16string& text, std::uint32_t, HMENU, std::u16string&) override {
        text = Own;
    }
    std::u16string TextOf(HWND owner) const {
        wchar_t text[100] = L"";
        TTTOOLINFOW tool{};
        tool.cbSize = sizeof tool;
        tool.hwnd = owner;
        tool.uId = reinterpret_cast<UINT_PTR>(owner);
        tool.lpszText = text;
        SendMessageW(Window(), TTM_GETTEXTW, 100, reinterpret_cast<LPARAM>(&tool));
        return FromWide(text);
    }

    std::u16string Own = u"own";
};

class MenuTip : public testing::Test {
  protected:
    MenuTip() : menu_(CreatePopupMenu()) {
        SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Answer));
        AppendMenuW(menu_.get(), MF_STRING, kItem, L"An item");
        tip_.CreateTip(window_, u"default", TTS_NOPREFIX, u"");
    }

    std::u16string TextAfterRest() {
        tip_.OnMenuSelect(kItem, 0, menu_.get());
        clock_.Tick += kTipDelayMs;
        tip_.OnTimer();
        return tip_.TextOf(window_);
    }

    std::optional<std::u16string> given_;
    std::uint32_t askedFor_ = 0;
    FakeClock clock_;
    UniqueMenu menu_;
    MessageWindow owner_;
    HWND window_ = owner_.Get();
    PlainTip tip_{clock_};

  private:
    static LRESULT CALLBACK Answer(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        auto& test = *reinterpret_cast<MenuTip*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (message != RegisterWindowMessageW(Wide(kMessageMenuTip.data())) || !test.given_) {
            return DefWindowProcW(window, message, wParam, lParam);
        }
        auto& block = *reinterpret_cast<MenuTipBlock*>(lParam);
        test.askedFor_ = block.Id;
        block.Text = *test.given_;
        return 1;
    }
};

TEST_F(MenuTip, TheSourcesTextComesBeforeTheOwnAndTheOwnBeforeTheDefault) {
    EXPECT_EQ(TextAfterRest(), u"own");
    tip_.SetSource(window_);
    EXPECT_EQ(TextAfterRest(), u"own");
    given_ = u"from the source";
    EXPECT_EQ(TextAfterRest(), u"from the source");
    EXPECT_EQ(askedFor_, kItem);
    given_.reset();
    tip_.Own.clear();
    EXPECT_EQ(TextAfterRest(), u"default");
}

}  // namespace
}  // namespace vbr
