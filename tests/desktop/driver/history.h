// SPDX-License-Identifier: MIT
#pragma once

#include "platform/win32/windows.h"

#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "desktop/driver/waiting.h"
#include "history/item_info.h"
#include "windows/pump.h"

namespace vbr::desktop {

// A program that copies: this process, with a window that owns the clipboard.
class Copier {
  public:
    // Registered formats by name, standard ones by number.
    using Block = std::pair<UINT, std::string>;

    Copier();
    ~Copier();
    Copier(const Copier&) = delete;
    Copier& operator=(const Copier&) = delete;

    void Copy(const std::vector<Block>& blocks);
    void CopyText(std::u16string_view text);
    // A black bitmap, alone or beside a text as a spreadsheet copies it.
    void CopyBitmap(bool withText);
    // Holds the clipboard for that long afterwards.
    void CopyAndHold(std::u16string_view text, DWORD milliseconds);
    // Promises the text and waits until somebody has asked for it; false when nobody does.
    bool CopyUntilTaken(std::u16string_view text);
    // Promises formats that nobody has asked for yet; a text of three letters in each.
    void Promise(const std::vector<UINT>& formats);
    // How often each promised format was asked for.
    const std::map<UINT, int>& Asked() const { return asked_; }

    // Asks again and again until the condition holds, and answers messages meanwhile as the owner
    // of a clipboard should; false when the time is over.
    template <typename Condition>
    bool WaitUntil(Condition&& holds) {
        return desktop::WaitUntil([&] {
            Pump();
            return holds();
        });
    }

  private:
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HWND window_ = nullptr;
    std::string promised_;
    std::map<UINT, int> asked_;
};

// An item as the program's folder holds it.
struct StoredItem {
    ItemInfo Info;
    std::u16string Text;  // of the first data file, as far as it is text
};

// What a start of the program would load, the newest first.
std::vector<StoredItem> ReadStoredHistory(const std::filesystem::path& programFolder);

// The texts of the newest items, at most that many.
std::vector<std::u16string> NewestTexts(const std::filesystem::path& programFolder,
                                        std::size_t count);

}  // namespace vbr::desktop
