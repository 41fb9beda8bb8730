// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <functional>
#include <vector>

#include "menu/menu_history.h"

namespace vbr {

// A history of items that the test makes, the newest first.
class FakeMenuHistory : public MenuHistory {
  public:
    struct Item {
        std::u16string Text;
        MenuHistoryKind Kind = MenuHistoryKind::Text;
        std::u16string Url;
        std::u16string Caption;
        std::u16string Tip;
    };
    std::deque<Item> Items;
    bool Locked = false;
    mutable int TextsRead = 0;
    std::function<void(std::size_t index)> OnCaption = [](std::size_t) {};

    void AddTexts(int count) {
        for (int i = 1; i <= count; ++i) {
            Items.push_back({u"clip " + std::u16string(1, static_cast<char16_t>(u'@' + i))});
        }
    }

    std::size_t GetCount() const override { return Items.size(); }
    MenuHistoryKind KindOf(std::size_t index) const override { return Items[index].Kind; }
    std::u16string MenuCaptionText(std::size_t index) const override {
        OnCaption(index);
        return Items[index].Text.substr(0, Items[index].Text.find_first_of(u"\r\n"));
    }
    std::u16string FullText(std::size_t index) const override {
        ++TextsRead;
        return Items[index].Text;
    }
    std::u16string SourceUrl(std::size_t index) const override { return Items[index].Url; }
    std::u16string& MenuCaption(std::size_t index) override { return Items[index].Caption; }
    std::u16string& MenuTip(std::size_t index) override { return Items[index].Tip; }
    void SetLocked(bool locked) override { Locked = locked; }
};

}  // namespace vbr
