// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/date_time.h"
#include "platform/bitmap.h"
#include "platform/clipboard_blocks.h"
#include "platform/window_handle.h"

namespace vbr {

// What an item holds. History files store these numbers: they never change.
enum ItemFormat : std::int32_t {
    CHF_ANSI_TEXT = 0,     // bytes in the ANSI code page; from older history files only
    CHF_UNICODE_TEXT = 1,  // UTF-16
    CHF_RTF = 2,           // source bytes
    CHF_KELPNOTES = 3,     // opaque bytes
    CHF_BITMAP = 4,
    CHF_HTML = 5,  // the clipboard's "HTML Format" block with its header, UTF-8
};

// How an item stands to its files.
enum class StoreState : std::int32_t { NotStored = 0, Loaded = 1, Saved = 2 };

using ItemBytes = std::vector<std::byte>;

// Units before the first zero; all of them without one. Fast on long texts.
std::size_t LengthToZero(std::u16string_view text);

// One record of the clipboard history, or another format of one. What it holds never changes in
// place: copies share it, on any thread. An item in a queue changes through the queue alone.
class CCHItem {
  public:
    CCHItem(ItemFormat format, WindowHandle ownerWindow, const SystemTime& time);

    ~CCHItem() { mark_ = 0; }

    // Whether a living item is at the address, which must be readable. For addresses in messages.
    static bool IsAt(const void* address);

    // The same item with the same content, without the icon.
    std::unique_ptr<CCHItem> Copy() const;

    WindowHandle ownerWindow = 0;  // owned the clipboard at capture; 0 after loading
    std::filesystem::path infoPath;
    std::u16string key;  // 32 hexadecimal digits; a copy has the same
    std::vector<std::shared_ptr<CCHItem>> alternatives;  // its other formats; these have none
    bool isProtected = false;
    mutable std::u16string menuCaption;  // what menus made of it, empty until then
    mutable std::u16string menuTip;
    std::filesystem::path dataPath;  // empty when not on disk
    std::uint32_t id = 0;            // running number in this process
    std::u16string sourceUrl;        // an address or a local path, may be empty
    std::u16string exeName;          // program of the owner
    std::u16string wndName;          // title of the owner's top window
    mutable bool iconTried = false;
    mutable std::shared_ptr<void> icon;  // the owner's, may be null
    StoreState storeState = StoreState::NotStored;
    // Grows when the item becomes unsaved, so that a save of what it was before counts no more.
    std::uint32_t revision = 0;
    SystemTime time;  // local, of the capture
    ItemFormat format = CHF_UNICODE_TEXT;
    std::uint32_t locale = 0;  // of an ANSI text at capture, 0 when unknown

    // With its terminator; empty for a bitmap.
    const ItemBytes& Data() const { return *data_; }
    const std::shared_ptr<const Bitmap>& Picture() const { return picture_; }
    // Bytes of the data; 4 for a bitmap.
    std::uint32_t Size() const;
    // Equal for items that IsSame calls equal; different, but for chance, for all others.
    std::uint64_t ContentHash() const { return hash_; }

    void SetData(ItemBytes data);
    void SetPicture(std::shared_ptr<const Bitmap> picture);

    // Drops content, other formats and source: the step before the content is replaced.
    void FreeData();

    // The data as text, up to its first zero.
    std::u16string_view WideText() const;
    std::string_view ByteText() const;

    // This item or the first alternative of that format; null when there is none.
    const CCHItem* FindFormat(ItemFormat code) const;
    bool HasFormat(ItemFormat code) const { return FindFormat(code) != nullptr; }

    // Takes a key and an id of its own.
    void RenewIdentity();

    // It counts as unsaved from now on and has no files.
    void ForgetStorage();

  private:
    CCHItem(const CCHItem&) = default;

    friend bool IsSame(const CCHItem& a, const CCHItem& b);

    std::string_view SameBytes() const;

    static constexpr std::uint64_t kLiving = 0x4D45'5449'4843'4356;

    volatile std::uint64_t mark_ = kLiving;
    std::shared_ptr<const ItemBytes> data_;
    std::size_t wideLength_ = 0;  // units before the first zero
    std::size_t sameLength_ = 0;  // bytes that IsSame looks at
    std::shared_ptr<const Bitmap> picture_;
    std::uint64_t hash_ = 0;
};

// Whether two items hold the same in the same format. Kelp notes never do; alternatives, time and
// source take no part.
bool IsSame(const CCHItem& a, const CCHItem& b);

// Whether the item's kind is ever stored and there is something to store.
bool IsStorable(const CCHItem& item);

using ItemList = std::vector<std::unique_ptr<CCHItem>>;

// Oldest first; equal times keep their order.
void SortByTime(ItemList& items);

}  // namespace vbr
