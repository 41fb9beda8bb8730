// SPDX-License-Identifier: MIT
#include "history/history_item.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <random>
#include <tuple>

namespace vbr {
namespace {

constexpr std::uint32_t kBitmapSize = 4;

const std::shared_ptr<const ItemBytes>& NoData() {
    static const auto none = std::make_shared<const ItemBytes>();
    return none;
}

// Seeded as widely as a UUID is; the system's own source is slow for each of many items.
std::mt19937 MakeRandom() {
    std::random_device source;
    std::seed_seq seed{source(), source(), source(), source(),
                       source(), source(), source(), source()};
    return std::mt19937(seed);
}

std::uint32_t RandomWord() {
    thread_local std::mt19937 random = MakeRandom();
    return static_cast<std::uint32_t>(random());
}

// A random UUID's digits without its signs.
std::u16string NewKey() {
    std::array<std::uint32_t, 4> words{RandomWord(), RandomWord(), RandomWord(), RandomWord()};
    words[1] = (words[1] & 0xFFFF0FFF) | 0x4000;      // version: random
    words[2] = (words[2] & 0x3FFFFFFF) | 0x80000000;  // variant
    std::u16string key;
    for (const std::uint32_t word : words) {
        for (int shift = 28; shift >= 0; shift -= 4) {
            key += u"0123456789abcdef"[word >> shift & 0xF];
        }
    }
    return key;
}

std::uint32_t NextId() {
    static std::atomic<std::uint32_t> next = 0;
    return next++;
}

std::string_view AllBytes(const ItemBytes& bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::u16string_view UnitsOf(std::string_view bytes) {
    return {reinterpret_cast<const char16_t*>(bytes.data()), bytes.size() / sizeof(char16_t)};
}

bool IsSamePicture(const std::shared_ptr<const Bitmap>& a, const std::shared_ptr<const Bitmap>& b) {
    if (!a || !b) {
        return false;
    }
    if (a == b) {
        return true;
    }
    const auto header = a->Header();
    if (!header || header != b->Header()) {
        return false;
    }
    const auto bits = a->Read(*header);
    return bits && bits == b->Read(*header);
}

std::uint64_t HashOf(std::string_view bytes) {
    return std::hash<std::string_view>()(bytes);
}

}  // namespace

std::size_t LengthToZero(std::u16string_view text) {
    // Looked at in blocks, which the compiler turns into a few wide instructions each.
    constexpr std::size_t kBlock = 64;
    std::size_t at = 0;
    for (; at + kBlock <= text.size(); at += kBlock) {
        unsigned zeros = 0;
        for (std::size_t i = 0; i < kBlock; ++i) {
            zeros += text[at + i] == u'\0' ? 1U : 0U;
        }
        if (zeros != 0) {
            break;
        }
    }
    while (at < text.size() && text[at] != u'\0') {
        ++at;
    }
    return at;
}

CCHItem::CCHItem(ItemFormat itemFormat, WindowHandle owner, const SystemTime& captured)
    : ownerWindow(owner),
      key(NewKey()),
      id(NextId()),
      time(captured),
      format(itemFormat),
      data_(NoData()) {}

bool CCHItem::IsAt(const void* address) {
    return static_cast<const CCHItem*>(address)->mark_ == kLiving;
}

std::unique_ptr<CCHItem> CCHItem::Copy() const {
    std::unique_ptr<CCHItem> copy(new CCHItem(*this));
    copy->icon.reset();
    copy->iconTried = false;
    // Objects of their own, so that a thread may note in its copies where they were written.
    for (auto& alternative : copy->alternatives) {
        alternative = alternative->Copy();
    }
    return copy;
}

std::uint32_t CCHItem::Size() const {
    return format == CHF_BITMAP ? kBitmapSize : static_cast<std::uint32_t>(data_->size());
}

void CCHItem::SetData(ItemBytes data) {
    data_ = std::make_shared<const ItemBytes>(std::move(data));
    const std::string_view all = AllBytes(*data_);
    wideLength_ = LengthToZero(UnitsOf(all));
    // An odd number of bytes has a zero thought behind it. Without the last unit's high byte when
    // that is zero both kinds compare as they are.
    const std::string_view text =
        wideLength_ == all.size() / 2 ? all : all.substr(0, wideLength_ * sizeof(char16_t));
    sameLength_ = text.size() - (text.ends_with('\0') ? 1 : 0);
    hash_ = HashOf(SameBytes());
}

void CCHItem::SetPicture(std::shared_ptr<const Bitmap> picture) {
    picture_ = std::move(picture);
    const auto header = picture_ ? picture_->Header() : std::nullopt;
    const auto bits = header ? picture_->Read(*header) : std::nullopt;
    hash_ = bits ? HashOf(AllBytes(bits->Bits)) : 0;
}

void CCHItem::FreeData() {
    alternatives.clear();
    data_ = NoData();
    wideLength_ = sameLength_ = 0;
    picture_.reset();
    hash_ = 0;
    locale = 0;
    sourceUrl.clear();
}

std::u16string_view CCHItem::WideText() const {
    return UnitsOf(AllBytes(*data_)).substr(0, wideLength_);
}

std::string_view CCHItem::SameBytes() const {
    return AllBytes(*data_).substr(0, sameLength_);
}

std::string_view CCHItem::ByteText() const {
    const std::string_view all = AllBytes(*data_);
    return all.substr(0, all.find('\0'));
}

const CCHItem* CCHItem::FindFormat(ItemFormat code) const {
    if (format == code) {
        return this;
    }
    const auto found =
        std::find_if(alternatives.begin(), alternatives.end(),
                     [code](const auto& alternative) { return alternative->format == code; });
    return found == alternatives.end() ? nullptr : found->get();
}

void CCHItem::RenewIdentity() {
    key = NewKey();
    id = NextId();
}

void CCHItem::ForgetStorage() {
    storeState = StoreState::NotStored;
    ++revision;
    dataPath.clear();
    infoPath.clear();
    for (const auto& alternative : alternatives) {
        alternative->dataPath.clear();
    }
}

bool IsSame(const CCHItem& a, const CCHItem& b) {
    if (a.format != b.format || a.format == CHF_KELPNOTES || a.ContentHash() != b.ContentHash()) {
        return false;
    }
    return a.format == CHF_BITMAP ? IsSamePicture(a.Picture(), b.Picture())
                                  : a.SameBytes() == b.SameBytes();
}

bool IsStorable(const CCHItem& item) {
    return item.format != CHF_BITMAP && !item.Data().empty();
}

void SortByTime(ItemList& items) {
    const auto order = [](const SystemTime& time) {
        return std::tie(time.Year, time.Month, time.Day, time.Hour, time.Minute, time.Second,
                        time.Milliseconds);
    };
    std::stable_sort(items.begin(), items.end(), [&order](const auto& a, const auto& b) {
        return order(a->time) < order(b->time);
    });
}

}  // namespace vbr
