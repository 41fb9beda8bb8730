// SPDX-License-Identifier: MIT
#include "desktop/driver/history.h"

#include <algorithm>
#include <cstring>

#include "base/text.h"
#include "desktop/driver/program.h"
#include "windows/global_memory.h"

namespace vbr::desktop {
namespace {

std::string UnitsOf(std::u16string_view text) {
    const std::u16string terminated = std::u16string(text) + u'\0';
    return {reinterpret_cast<const char*>(terminated.data()), terminated.size() * 2};
}

std::u16string TextIn(const std::string& bytes) {
    if (!bytes.starts_with("\xFF\xFE")) {
        return Utf8ToUtf16(bytes.substr(0, bytes.find('\0')));
    }
    std::u16string text(bytes.size() / 2, u'\0');
    std::memcpy(text.data(), bytes.data(), text.size() * 2);
    return text.substr(1, text.find(u'\0') - 1);
}

}  // namespace

Copier::Copier() {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = WindowProc;
    windowClass.lpszClassName = L"Copier";
    RegisterClassW(&windowClass);
    window_ = CreateWindowW(L"Copier", L"Copying program", WS_OVERLAPPEDWINDOW, 0, 0, 10, 10,
                            nullptr, nullptr, nullptr, nullptr);
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

Copier::~Copier() {
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
}

LRESULT CALLBACK Copier::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* self = reinterpret_cast<Copier*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_RENDERFORMAT && self) {
        SetClipboardData(static_cast<UINT>(wParam), MemoryOf(self->promised_));
        ++self->asked_[static_cast<UINT>(wParam)];
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

void Copier::Copy(const std::vector<Block>& blocks) {
    desktop::WaitUntil([this] { return OpenClipboard(window_) != 0; });
    EmptyClipboard();
    for (const auto& [format, bytes] : blocks) {
        SetClipboardData(format, bytes.empty() ? nullptr : MemoryOf(bytes));
    }
    CloseClipboard();
}

void Copier::CopyText(std::u16string_view text) {
    Copy({{CF_UNICODETEXT, UnitsOf(text)}});
}

void Copier::CopyBitmap(bool withText) {
    desktop::WaitUntil([this] { return OpenClipboard(window_) != 0; });
    EmptyClipboard();
    SetClipboardData(CF_BITMAP, CreateBitmap(3, 2, 1, 1, nullptr));
    if (withText) {
        SetClipboardData(CF_UNICODETEXT, MemoryOf(UnitsOf(u"beside a bitmap")));
    }
    CloseClipboard();
}

void Copier::CopyAndHold(std::u16string_view text, DWORD milliseconds) {
    CopyText(text);
    desktop::WaitUntil([this] { return OpenClipboard(window_) != 0; });
    Sleep(milliseconds);
    CloseClipboard();
}

bool Copier::CopyUntilTaken(std::u16string_view text) {
    promised_ = UnitsOf(text);
    asked_.clear();
    Copy({{CF_UNICODETEXT, ""}});
    return WaitUntil([this] { return !asked_.empty(); });
}

void Copier::Promise(const std::vector<UINT>& formats) {
    promised_ = UnitsOf(u"abc");
    asked_.clear();
    std::vector<Block> blocks;
    for (const UINT format : formats) {
        blocks.emplace_back(format, "");
    }
    Copy(blocks);
}

std::vector<StoredItem> ReadStoredHistory(const std::filesystem::path& programFolder) {
    std::vector<StoredItem> items;
    std::error_code error;
    const std::filesystem::path folder = programFolder / L"ClipboardHistory";
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
        if (entry.path().extension() == L".info") {
            const ItemInfo info = ReadItemInfo(FileBytes(entry.path()));
            if (!info.Files.empty()) {
                items.push_back({info, TextIn(FileBytes(folder / info.Files[0]))});
            }
        }
    }
    std::sort(items.begin(), items.end(),
              [](const StoredItem& a, const StoredItem& b) { return a.Info.Time > b.Info.Time; });
    return items;
}

std::vector<std::u16string> NewestTexts(const std::filesystem::path& programFolder,
                                        std::size_t count) {
    std::vector<std::u16string> texts;
    for (const StoredItem& item : ReadStoredHistory(programFolder)) {
        // Of an item that has just come again the older files are about to go.
        const bool isNew = std::find(texts.begin(), texts.end(), item.Text) == texts.end();
        if (isNew && texts.size() < count) {
            texts.push_back(item.Text);
        }
    }
    return texts;
}

}  // namespace vbr::desktop
