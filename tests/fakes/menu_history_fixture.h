// SPDX-License-Identifier: MIT
#pragma once

#include "fakes/fake_ansi_text.h"
#include "fakes/fake_rich_text_engine.h"
#include "fakes/history_fixture.h"
#include "menu/queue_history.h"

namespace vbr {

// A history of items that the test makes, as the menu sees it.
struct MenuHistoryFixture : HistoryFixture {
    FakeAnsiText Ansi;
    FakeRichTextEngine Engine;
    ItemTexts Contents{Ansi, Engine, Log};
    QueueHistory History{Queue, Contents};

    // "clip A", "clip B" and so on, the newest first.
    void AddClips(int count) {
        for (int i = count; i > 0; --i) {
            Add(TextItem(u"clip " + std::u16string(1, static_cast<char16_t>(u'@' + i))));
        }
    }
    void AddClip(std::u16string_view text, std::u16string_view url = {}) {
        auto item = TextItem(text);
        item->sourceUrl = url;
        Add(std::move(item));
    }
};

}  // namespace vbr
