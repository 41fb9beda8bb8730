// SPDX-License-Identifier: MIT
#include "editor/win32/phrase_tree_view.h"

#include <shellapi.h>
#include <utility>

#include "platform/win32/wide.h"

namespace vbr {
namespace {

// The shell's own small images, and the number of the one for such a name in them.
HIMAGELIST ShellImages(const wchar_t* name, DWORD attributes, int& image) {
    SHFILEINFOW info{};
    const auto list = reinterpret_cast<HIMAGELIST>(
        SHGetFileInfoW(name, attributes, &info, sizeof info,
                       SHGFI_USEFILEATTRIBUTES | SHGFI_SYSICONINDEX | SHGFI_SMALLICON));
    image = info.iIcon;
    return list;
}

}  // namespace

void PhraseTreeView::Attach(HWND tree) {
    tree_ = tree;
    const HIMAGELIST images = ShellImages(L"folder", FILE_ATTRIBUTE_DIRECTORY, groupImage_);
    Send(TVM_SETIMAGELIST, TVSIL_NORMAL, reinterpret_cast<LPARAM>(images));
    for (const auto& [kind, name] : {std::pair(kDataTypeText, L"a.txt"),
                                     {kDataTypeRtf, L"a.rtf"},
                                     {kDataTypeExec, L"a.exe"}}) {
        ShellImages(name, FILE_ATTRIBUTE_NORMAL, kindImages_[kind]);
    }
}

int PhraseTreeView::ImageOf(const VBRCommand& record) const {
    const auto found = kindImages_.find(record.DataType);
    return record.IsGroup() || found == kindImages_.end() ? groupImage_ : found->second;
}

void PhraseTreeView::Fill(const std::vector<VBRCommand>& records,
                          const std::filesystem::path& select) {
    Send(WM_SETREDRAW, FALSE);
    Send(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
    paths_.clear();
    Add(TVI_ROOT, records);
    HTREEITEM chosen = Next(nullptr, TVGN_ROOT);
    for (HTREEITEM item = chosen; item; item = Next(item, TVGN_NEXTVISIBLE)) {
        if (PathOf(item) == select) {
            chosen = item;
        }
    }
    Select(TVGN_CARET, chosen);
    Send(TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(chosen));
    Send(WM_SETREDRAW, TRUE);
    InvalidateRect(tree_, nullptr, TRUE);
}

void PhraseTreeView::Add(HTREEITEM parent, const std::vector<VBRCommand>& records) {
    for (const VBRCommand& record : records) {
        std::u16string text = record.Text;
        TVINSERTSTRUCTW insert{};
        insert.hParent = parent;
        insert.hInsertAfter = TVI_LAST;
        insert.item.mask = TVIF_TEXT | TVIF_PARAM | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_STATE;
        insert.item.pszText = Wide(text.data());
        insert.item.lParam = static_cast<LPARAM>(paths_.size());
        insert.item.iImage = insert.item.iSelectedImage = ImageOf(record);
        // One that is turned off looks faint.
        insert.item.stateMask = TVIS_CUT;
        insert.item.state = record.IsGroup() || record.Enabled ? 0U : UINT{TVIS_CUT};
        paths_.push_back(record.FilePath);
        const auto item = reinterpret_cast<HTREEITEM>(
            Send(TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert)));
        if (record.IsGroup()) {
            Add(item, *record.Commands);
            Send(TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(item));
        }
    }
}

std::filesystem::path PhraseTreeView::PathOf(HTREEITEM item) const {
    TVITEMW info{};
    info.mask = TVIF_PARAM;
    info.hItem = item;
    if (!item || !Send(TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&info))) {
        return {};
    }
    const auto index = static_cast<std::size_t>(info.lParam);
    return index < paths_.size() ? paths_[index] : std::filesystem::path();
}

std::filesystem::path PhraseTreeView::Selected() const {
    return PathOf(Next(nullptr, TVGN_CARET));
}

HTREEITEM PhraseTreeView::ItemAt(POINT point) const {
    TVHITTESTINFO hit{};
    hit.pt = point;
    MapWindowPoints(nullptr, tree_, &hit.pt, 1);
    return reinterpret_cast<HTREEITEM>(Send(TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
}

void PhraseTreeView::BeginDrag(HTREEITEM item, HWND capture) {
    Select(TVGN_CARET, item);
    dragged_ = Selected();
    SetCapture(capture);
}

void PhraseTreeView::DragTo(POINT point) {
    if (!dragged_.empty()) {
        Select(TVGN_DROPHILITE, ItemAt(point));
    }
}

std::optional<PhraseTreeView::Drop> PhraseTreeView::EndDrag(POINT point) {
    const std::filesystem::path dragged = std::exchange(dragged_, {});
    if (dragged.empty()) {
        return std::nullopt;
    }
    Select(TVGN_DROPHILITE, nullptr);
    ReleaseCapture();
    RECT rect{};
    GetWindowRect(tree_, &rect);
    const std::filesystem::path onto = PathOf(ItemAt(point));
    if (!PtInRect(&rect, point) || onto == dragged) {
        return std::nullopt;
    }
    return Drop{dragged, onto};
}

}  // namespace vbr
