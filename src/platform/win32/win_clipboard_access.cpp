// SPDX-License-Identifier: MIT
#include "platform/win32/win_clipboard_access.h"

#include <array>
#include <cstddef>
#include <cstring>
#include <new>
#include <span>
#include <utility>

#include "platform/win32/handle.h"
#include "platform/win32/wide.h"

namespace vbr {
namespace {

constexpr DWORD kRetryMs = 10;

enum class Kind { Memory, Bitmap, Palette, Metafile, EnhancedMetafile, Unreadable };

Kind KindOf(std::uint32_t format) {
    switch (format) {
        case CF_BITMAP:
        case CF_DSPBITMAP:
            return Kind::Bitmap;
        case CF_PALETTE:
            return Kind::Palette;
        case CF_METAFILEPICT:
        case CF_DSPMETAFILEPICT:
            return Kind::Metafile;
        case CF_ENHMETAFILE:
        case CF_DSPENHMETAFILE:
            return Kind::EnhancedMetafile;
        case CF_OWNERDISPLAY:
            return Kind::Unreadable;
        default:
            break;
    }
    // Private data may be any number, or names objects by numbers of its owner's process, which
    // frees them as soon as the clipboard is emptied. Taken for memory here, such a number could
    // hit a block of ours.
    return format >= CF_PRIVATEFIRST && format <= CF_GDIOBJLAST ? Kind::Unreadable : Kind::Memory;
}

// A handle of any of these kinds, with the call that frees it.
using OwnedHandle = std::unique_ptr<void, void (*)(void*)>;

template <typename Handle, auto Free>
OwnedHandle Own(Handle handle) {
    return {handle, [](void* owned) { Free(static_cast<Handle>(owned)); }};
}

class LockedMemory {
  public:
    explicit LockedMemory(HGLOBAL memory) : memory_(memory), bytes_(GlobalLock(memory)) {}
    ~LockedMemory() {
        if (bytes_) {
            GlobalUnlock(memory_);
        }
    }
    LockedMemory(const LockedMemory&) = delete;
    LockedMemory& operator=(const LockedMemory&) = delete;

    // Empty when the memory can't be reached.
    std::span<std::byte> Bytes() const {
        return {static_cast<std::byte*>(bytes_), bytes_ ? GlobalSize(memory_) : 0};
    }

  private:
    HGLOBAL memory_;
    void* bytes_;
};

OwnedHandle CopyMemoryBlock(std::span<const std::byte> bytes) {
    OwnedHandle copy =
        Own<HGLOBAL, GlobalFree>(GlobalAlloc(GMEM_MOVEABLE | GMEM_DDESHARE, bytes.size()));
    if (copy && !bytes.empty()) {
        const LockedMemory locked(copy.get());
        if (locked.Bytes().empty()) {
            copy.reset();
        } else {
            std::memcpy(locked.Bytes().data(), bytes.data(), bytes.size());
        }
    }
    return copy;
}

// Like the source: a bitmap of the device, or one with bits in memory.
OwnedHandle CopyBitmap(void* bitmap) {
    DIBSECTION section = {};
    const bool inMemory = GetObjectW(bitmap, sizeof section, &section) == sizeof section;
    return Own<HGDIOBJ, DeleteObject>(
        CopyImage(bitmap, IMAGE_BITMAP, 0, 0, inMemory ? LR_CREATEDIBSECTION : 0));
}

OwnedHandle CopyPalette(void* handle) {
    auto* const palette = static_cast<HPALETTE>(handle);
    struct {
        WORD Version = 0x300;
        WORD Count = 0;
        std::array<PALETTEENTRY, 1024> Entries;
    } entries;
    static_assert(offsetof(LOGPALETTE, palPalEntry) == offsetof(decltype(entries), Entries));
    entries.Count = static_cast<WORD>(GetPaletteEntries(
        palette, 0, static_cast<UINT>(entries.Entries.size()), entries.Entries.data()));
    return Own<HGDIOBJ, DeleteObject>(CreatePalette(reinterpret_cast<const LOGPALETTE*>(&entries)));
}

OwnedHandle CopyMetafile(void* metafile) {
    return Own<HMETAFILE, DeleteMetaFile>(CopyMetaFileW(static_cast<HMETAFILE>(metafile), nullptr));
}

OwnedHandle CopyEnhancedMetafile(void* metafile) {
    return Own<HENHMETAFILE, DeleteEnhMetaFile>(
        CopyEnhMetaFileW(static_cast<HENHMETAFILE>(metafile), nullptr));
}

std::optional<METAFILEPICT> PictureIn(std::span<const std::byte> bytes) {
    METAFILEPICT picture = {};
    if (bytes.size() < sizeof picture) {
        return std::nullopt;
    }
    std::memcpy(&picture, bytes.data(), sizeof picture);
    return picture;
}

void FreePicture(HGLOBAL memory) {
    {
        const LockedMemory locked(memory);
        if (const auto picture = PictureIn(locked.Bytes())) {
            DeleteMetaFile(picture->hMF);
        }
    }
    GlobalFree(memory);
}

// The memory block around a copy of the block's metafile.
OwnedHandle CopyPicture(const ClipboardBlock& block) {
    OwnedHandle metafile = CopyMetafile(block.Object.get());
    auto picture = PictureIn(block.Bytes);
    if (!metafile || !picture) {
        return Own<HGLOBAL, GlobalFree>(nullptr);
    }
    picture->hMF = static_cast<HMETAFILE>(metafile.get());
    OwnedHandle memory = CopyMemoryBlock(std::as_bytes(std::span(&*picture, 1)));
    if (!memory) {
        return memory;
    }
    metafile.release();
    return Own<HGLOBAL, FreePicture>(memory.release());
}

// A handle that the system may keep.
OwnedHandle CopyForSystem(const ClipboardBlock& block, Kind kind) {
    switch (kind) {
        case Kind::Bitmap:
            return CopyBitmap(block.Object.get());
        case Kind::Palette:
            return CopyPalette(block.Object.get());
        case Kind::Metafile:
            return CopyPicture(block);
        case Kind::EnhancedMetafile:
            return CopyEnhancedMetafile(block.Object.get());
        case Kind::Memory:
            return CopyMemoryBlock(block.Bytes);
        case Kind::Unreadable:
            break;
    }
    return Own<HGLOBAL, GlobalFree>(nullptr);
}

class WinSession : public ClipboardSession {
  public:
    ~WinSession() override {
        if (open_) {
            CloseClipboard();
        }
    }
    WinSession() = default;
    WinSession(const WinSession&) = delete;
    WinSession& operator=(const WinSession&) = delete;

    bool TryOpen(HWND owner) {
        if (owner && !IsWindow(owner)) {
            // With a dead window it doesn't open, and without one it takes no data.
            if (!standIn_) {
                standIn_.reset(CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE,
                                               nullptr, nullptr, nullptr));
            }
            owner = standIn_.get();
        }
        open_ = OpenClipboard(owner) != 0;
        return open_;
    }

    std::vector<std::uint32_t> Formats() const override {
        std::vector<std::uint32_t> formats;
        for (UINT format = 0; (format = EnumClipboardFormats(format)) != 0;) {
            formats.push_back(format);
        }
        return formats;
    }

    std::u16string FormatName(std::uint32_t format) const override {
        std::array<wchar_t, 256> name = {};
        const int length =
            GetClipboardFormatNameW(format, name.data(), static_cast<int>(name.size()));
        return FromWide(name.data(), static_cast<std::size_t>(length));
    }

    bool DoesOwnerAnswer(std::uint32_t milliseconds) const override {
        HWND owner = GetClipboardOwner();
        DWORD_PTR answer = 0;
        SetLastError(ERROR_SUCCESS);
        if (!owner ||
            SendMessageTimeoutW(owner, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, milliseconds, &answer)) {
            return true;
        }
        // A window that has gone, or that may not be asked, makes no reader wait.
        const DWORD error = GetLastError();
        return error != ERROR_SUCCESS && error != ERROR_TIMEOUT;
    }

    std::optional<ClipboardBlock> Read(std::uint32_t format) const override {
        const Kind kind = KindOf(format);
        HANDLE data = kind == Kind::Unreadable ? nullptr : GetClipboardData(format);
        if (!data) {
            return std::nullopt;
        }
        try {
            ClipboardBlock block{.Format = format, .Name = FormatName(format)};
            return Fill(block, kind, data) ? std::optional(std::move(block)) : std::nullopt;
        } catch (const std::bad_alloc&) {
            return std::nullopt;
        }
    }

    bool Empty() override { return EmptyClipboard() != 0; }

    bool Write(const ClipboardBlock& block) override {
        const UINT format =
            block.Name.empty() ? block.Format : RegisterClipboardFormatW(Wide(block.Name));
        OwnedHandle copy = CopyForSystem(block, KindOf(format));
        if (!copy || !SetClipboardData(format, copy.get())) {
            return false;
        }
        copy.release();
        return true;
    }

  private:
    static bool Fill(ClipboardBlock& block, Kind kind, HANDLE data) {
        switch (kind) {
            case Kind::Bitmap:
                block.Object = CopyBitmap(data);
                break;
            case Kind::Palette:
                block.Object = CopyPalette(data);
                break;
            case Kind::EnhancedMetafile:
                block.Object = CopyEnhancedMetafile(data);
                break;
            case Kind::Metafile: {
                const LockedMemory locked(data);
                auto picture = PictureIn(locked.Bytes());
                if (!picture) {
                    return false;
                }
                block.Object = CopyMetafile(picture->hMF);
                picture->hMF = nullptr;
                const auto bytes = std::as_bytes(std::span(&*picture, 1));
                block.Bytes.assign(bytes.begin(), bytes.end());
                break;
            }
            default: {
                const LockedMemory locked(data);
                block.Bytes.assign(locked.Bytes().begin(), locked.Bytes().end());
                return true;
            }
        }
        return block.Object != nullptr;
    }

    // Outlives the open clipboard, which its end would close.
    UniqueWindow standIn_;
    bool open_ = false;
};

}  // namespace

std::unique_ptr<ClipboardSession> WinClipboardAccess::Open(std::uint32_t patienceMs) {
    auto session = std::make_unique<WinSession>();
    const ULONGLONG start = GetTickCount64();
    while (!session->TryOpen(owner_)) {
        if (GetTickCount64() - start >= patienceMs) {
            return nullptr;
        }
        Sleep(kRetryMs);
    }
    return session;
}

bool WinClipboardAccess::IsFormatAvailable(std::uint32_t format) const {
    return IsClipboardFormatAvailable(format) != 0;
}

std::uint32_t WinClipboardAccess::RegisterFormat(std::u16string_view name) {
    return RegisterClipboardFormatW(Wide(std::u16string(name)));
}

std::uint32_t WinClipboardAccess::SequenceNumber() const {
    return GetClipboardSequenceNumber();
}

std::uint32_t WinClipboardAccess::OwnerProcess() const {
    DWORD process = 0;
    GetWindowThreadProcessId(GetClipboardOwner(), &process);
    return process;
}

}  // namespace vbr
