// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <commctrl.h>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <vector>

#include "phrases/command_record.h"

namespace vbr {

// The tree control that shows the phrases. Items are told by the paths of their records.
class PhraseTreeView {
  public:
    void Attach(HWND tree);

    // Shows the records, groups open, and selects the one with that path, else the first.
    void Fill(const std::vector<VBRCommand>& records, const std::filesystem::path& select);
    // Empty when nothing is.
    std::filesystem::path Selected() const;

    // Dragging with the mouse, from the control's notice on. Points are on the screen.
    void BeginDrag(HTREEITEM item, HWND capture);
    void DragTo(POINT point);
    // What was dragged, and the item below the mouse or an empty path beside all items; nothing
    // when nothing is dragged, or it was let go elsewhere.
    struct Drop {
        std::filesystem::path What;
        std::filesystem::path Onto;
    };
    std::optional<Drop> EndDrag(POINT point);

  private:
    void Add(HTREEITEM parent, const std::vector<VBRCommand>& records);
    int ImageOf(const VBRCommand& record) const;
    std::filesystem::path PathOf(HTREEITEM item) const;
    HTREEITEM ItemAt(POINT point) const;
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageW(tree_, message, wParam, lParam);
    }
    HTREEITEM Next(HTREEITEM item, WPARAM which) const {
        return reinterpret_cast<HTREEITEM>(
            Send(TVM_GETNEXTITEM, which, reinterpret_cast<LPARAM>(item)));
    }
    void Select(WPARAM how, HTREEITEM item) const {
        Send(TVM_SELECTITEM, how, reinterpret_cast<LPARAM>(item));
    }

    HWND tree_ = nullptr;
    int groupImage_ = 0;
    std::map<std::int32_t, int> kindImages_;
    std::vector<std::filesystem::path> paths_;  // by the items' parameters
    std::filesystem::path dragged_;             // empty while nothing is
};

}  // namespace vbr
