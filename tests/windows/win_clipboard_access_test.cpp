// SPDX-License-Identifier: MIT
#include "platform/win32/win_clipboard_access.h"

#include "platform/win32/windows.h"

#include <array>
#include <cstring>
#include <functional>
#include <future>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string_view>
#include <thread>
#include <utility>

#include "exchange/clipboard_snapshot.h"
#include "fakes/memory_log.h"
#include "platform/win32/win_clipboard.h"

namespace vbr {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

HWND MakeWindow() {
    return CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr,
                           nullptr);
}

HGLOBAL MemoryOf(std::string_view bytes) {
    HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
    if (!bytes.empty()) {
        std::memcpy(GlobalLock(memory), bytes.data(), bytes.size());
        GlobalUnlock(memory);
    }
    return memory;
}

template <typename T>
std::string BytesOf(const T& value) {
    return {reinterpret_cast<const char*>(&value), sizeof value};
}

std::string BytesOf(HGLOBAL memory) {
    const auto* bytes = static_cast<const char*>(GlobalLock(memory));
    std::string copy(bytes ? bytes : "", bytes ? GlobalSize(memory) : 0);
    GlobalUnlock(memory);
    return copy;
}

// Five pixels a row, so that rows have padding.
BITMAPINFO PixelLayout(WORD bits) {
    BITMAPINFO info = {};
    info.bmiHeader = {.biSize = sizeof info.bmiHeader, .biWidth = 5, .biHeight = 3, .biPlanes = 1};
    info.bmiHeader.biBitCount = bits;
    return info;
}

HBITMAP MakeBitmap(bool inMemory) {
    BITMAPINFO info = PixelLayout(24);
    std::array<BYTE, 48> pixels;
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        pixels[i] = static_cast<BYTE>(i % 16 == 15 ? 0 : i * 5);
    }
    HDC screen = GetDC(nullptr);
    void* bits = nullptr;
    HBITMAP bitmap = inMemory ? CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0)
                              : CreateCompatibleBitmap(screen, 5, 3);
    SetDIBits(screen, bitmap, 0, 3, pixels.data(), &info, DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    return bitmap;
}

std::string DibBytes() {
    const BITMAPINFOHEADER header = PixelLayout(32).bmiHeader;
    std::string pixels;
    for (int i = 0; i < 5 * 3 * 4; ++i) {
        pixels.push_back(static_cast<char>(i * 4));
    }
    return BytesOf(header) + pixels;
}

std::string PixelsOf(HBITMAP bitmap) {
    BITMAP size = {};
    GetObjectW(bitmap, sizeof size, &size);
    BITMAPINFO info = PixelLayout(32);
    std::array<DWORD, 15> pixels = {};
    HDC screen = GetDC(nullptr);
    GetDIBits(screen, bitmap, 0, 3, pixels.data(), &info, DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    return BytesOf(size.bmWidth) + BytesOf(size.bmHeight) + BytesOf(size.bmBitsPixel) +
           BytesOf(pixels);
}

void Draw(HDC canvas) {
    Rectangle(canvas, 1, 2, 30, 40);
    TextOutW(canvas, 3, 4, L"drawn", 5);
}

HENHMETAFILE MakeEnhancedMetafile() {
    HDC canvas = CreateEnhMetaFileW(nullptr, nullptr, nullptr, L"a\0b\0");
    Draw(canvas);
    return CloseEnhMetaFile(canvas);
}

HGLOBAL MakePicture() {
    HDC canvas = CreateMetaFileW(nullptr);
    Draw(canvas);
    const METAFILEPICT picture = {MM_ANISOTROPIC, 1234, 567, CloseMetaFile(canvas)};
    return MemoryOf(BytesOf(picture));
}

HPALETTE MakePalette() {
    struct {
        WORD Version = 0x300;
        WORD Count = 3;
        std::array<PALETTEENTRY, 3> Entries = {
            {{1, 2, 3, 0}, {4, 5, 6, PC_RESERVED}, {7, 8, 9, 0}}};
    } palette;
    return CreatePalette(reinterpret_cast<LOGPALETTE*>(&palette));
}

UINT Registered(const wchar_t* name) {
    return RegisterClipboardFormatW(name);
}

using Content = std::vector<std::pair<UINT, HANDLE>>;

// The content as any other program sees it: each format with what its handle stands for.
std::vector<std::pair<UINT, std::string>> Seen() {
    std::vector<std::pair<UINT, std::string>> seen;
    EXPECT_TRUE(OpenClipboard(nullptr));
    for (UINT format = 0; (format = EnumClipboardFormats(format)) != 0;) {
        HANDLE data = GetClipboardData(format);
        std::string bytes;
        switch (format) {
            case CF_BITMAP:
            case CF_DSPBITMAP:
                bytes = PixelsOf(static_cast<HBITMAP>(data));
                break;
            case CF_PALETTE: {
                std::array<PALETTEENTRY, 300> entries = {};
                const UINT count =
                    GetPaletteEntries(static_cast<HPALETTE>(data), 0, 300, entries.data());
                bytes = BytesOf(count) + BytesOf(entries);
                break;
            }
            case CF_ENHMETAFILE:
            case CF_DSPENHMETAFILE: {
                auto* metafile = static_cast<HENHMETAFILE>(data);
                bytes.resize(GetEnhMetaFileBits(metafile, 0, nullptr));
                GetEnhMetaFileBits(metafile, static_cast<UINT>(bytes.size()),
                                   reinterpret_cast<BYTE*>(bytes.data()));
                break;
            }
            case CF_METAFILEPICT:
            case CF_DSPMETAFILEPICT: {
                METAFILEPICT picture = {};
                std::memcpy(&picture, GlobalLock(data), sizeof picture);
                GlobalUnlock(data);
                bytes.resize(GetMetaFileBitsEx(picture.hMF, 0, nullptr));
                GetMetaFileBitsEx(picture.hMF, static_cast<UINT>(bytes.size()), bytes.data());
                bytes += BytesOf(picture.mm) + BytesOf(picture.xExt) + BytesOf(picture.yExt);
                break;
            }
            default:
                bytes = BytesOf(static_cast<HGLOBAL>(data));
        }
        seen.emplace_back(format, bytes);
    }
    CloseClipboard();
    return seen;
}

class WinClipboardAccessTest : public testing::Test {
  protected:
    ~WinClipboardAccessTest() override {
        DestroyWindow(own_);
        DestroyWindow(foreign_);
    }

    void Put(const Content& content) {
        EXPECT_TRUE(OpenClipboard(foreign_) && EmptyClipboard());
        for (const auto& [format, handle] : content) {
            EXPECT_TRUE(SetClipboardData(format, handle) || !handle) << format;
        }
        CloseClipboard();
    }
    void PutOther() { Put({{CF_UNICODETEXT, MemoryOf({"o\0\0", 4})}}); }

    HWND own_ = MakeWindow();
    HWND foreign_ = MakeWindow();
    WinClipboardAccess clipboard_{own_};
    MemoryLog log_;
    CClipboardSnapshot snapshot_{clipboard_, log_};
};

TEST_F(WinClipboardAccessTest, EveryFormatComesBackAsItWas) {
    const UINT rtf = Registered(L"Rich Text Format");
    const UINT html = Registered(L"HTML Format");
    const UINT own = Registered(L"Vellumbridge test format");
    const struct {
        const char* Name;
        Content Given;
    } cases[] = {
        {"memory in several formats, none made from another",
         {{CF_UNICODETEXT, MemoryOf({"w\0i\0d\0e\0\0", 10})},
          {rtf, MemoryOf({"{\\rtf1 a}\0behind the end", 24})},
          {html, MemoryOf("Version:0.9\r\n<b>a</b>")},
          {own, MemoryOf({"\0\xFF\0\x80\0", 6})},
          {CF_TEXT, MemoryOf({"not the same text", 18})},
          {CF_LOCALE, MemoryOf({"\x19\x04\0", 4})},
          {CF_DSPTEXT, MemoryOf({"shown", 6})}}},
        {"ANSI text of another language",
         {{CF_TEXT, MemoryOf({"\xCF\xF0\xE8", 4})}, {CF_LOCALE, MemoryOf({"\x19\x04\0", 4})}}},
        {"a bitmap in memory", {{CF_BITMAP, MakeBitmap(true)}, {CF_PALETTE, MakePalette()}}},
        {"a bitmap of the device", {{CF_BITMAP, MakeBitmap(false)}}},
        {"a DIB with alpha values", {{CF_DIB, MemoryOf(DibBytes())}}},
        {"an enhanced metafile", {{CF_ENHMETAFILE, MakeEnhancedMetafile()}}},
        {"a metafile", {{CF_METAFILEPICT, MakePicture()}}},
        {"objects that a private format shows",
         {{own, MemoryOf("data")},
          {CF_DSPBITMAP, MakeBitmap(true)},
          {CF_DSPENHMETAFILE, MakeEnhancedMetafile()},
          {CF_DSPMETAFILEPICT, MakePicture()}}},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.Name);
        Put(test.Given);
        const auto before = Seen();
        EXPECT_GE(before.size(), test.Given.size());
        EXPECT_TRUE(snapshot_.Take());
        PutOther();
        EXPECT_NE(Seen(), before);
        EXPECT_TRUE(snapshot_.RestoreClipboardSnapshot());
        EXPECT_EQ(Seen(), before);
        EXPECT_EQ(GetClipboardOwner(), own_);
        EXPECT_THAT(log_.Lines, IsEmpty());
        log_.Lines.clear();
    }
}

TEST_F(WinClipboardAccessTest, HandlesThatOnlyTheirOwnerKnowsAreLeftOut) {
    Put({{CF_OWNERDISPLAY, nullptr},
         {CF_PRIVATEFIRST, MemoryOf("private")},
         {CF_GDIOBJFIRST, MemoryOf("object")},
         {CF_TEXT, MemoryOf({"text", 5})}});
    EXPECT_TRUE(snapshot_.Take());
    EXPECT_THAT(log_.Lines, SizeIs(3));
    PutOther();
    EXPECT_TRUE(snapshot_.RestoreClipboardSnapshot());
    const auto seen = Seen();
    EXPECT_THAT(seen, Contains(std::pair<UINT, std::string>(CF_TEXT, {"text", 5})));
    for (const UINT format : {CF_OWNERDISPLAY, CF_PRIVATEFIRST, CF_GDIOBJFIRST}) {
        EXPECT_THAT(seen, Not(Contains(testing::Key(format))));
    }
}

TEST_F(WinClipboardAccessTest, ABlockCanBeWrittenMoreThanOnce) {
    Put({{CF_BITMAP, MakeBitmap(true)}, {CF_METAFILEPICT, MakePicture()}});
    const auto before = Seen();
    std::vector<ClipboardBlock> blocks;
    {
        const auto session = clipboard_.Open(0);
        ASSERT_TRUE(session);
        for (const std::uint32_t format : session->Formats()) {
            blocks.push_back(session->Read(format).value());
        }
    }
    for (int i = 0; i < 2; ++i) {
        {
            const auto session = clipboard_.Open(0);
            ASSERT_TRUE(session && session->Empty());
            for (const ClipboardBlock& block : blocks) {
                EXPECT_TRUE(session->Write(block)) << block.Format;
            }
        }
        EXPECT_EQ(Seen(), before);
    }
}

TEST_F(WinClipboardAccessTest, AnEmptyClipboardIsTakenAndLeft) {
    Put({});
    EXPECT_TRUE(snapshot_.Take());
    PutOther();
    EXPECT_TRUE(snapshot_.RestoreClipboardSnapshot());
    EXPECT_EQ(WinClipboard().Text(), u"o");
}

TEST_F(WinClipboardAccessTest, TheContentOutlivesTheWindowThatWouldOwnIt) {
    Put({{CF_TEXT, MemoryOf({"text", 5})}});
    EXPECT_TRUE(snapshot_.Take());
    PutOther();
    DestroyWindow(std::exchange(own_, nullptr));
    EXPECT_TRUE(snapshot_.RestoreClipboardSnapshot());
    EXPECT_EQ(WinClipboard().Text(), u"text");
}

// Runs `work` with a window on a thread that answers no message meanwhile; `Release` ends it.
class SilentThread {
  public:
    explicit SilentThread(const std::function<void(HWND)>& begin, const std::function<void()>& end)
        : thread_([this, begin, end] {
              HWND window = MakeWindow();
              begin(window);
              ready_.set_value();
              release_.get_future().wait();
              end();
              DestroyWindow(window);
          }) {
        ready_.get_future().wait();
    }
    ~SilentThread() {
        Release();
        thread_.join();
    }
    SilentThread(const SilentThread&) = delete;
    SilentThread& operator=(const SilentThread&) = delete;

    void Release() {
        if (!released_) {
            released_ = true;
            release_.set_value();
        }
    }

  private:
    std::promise<void> ready_;
    std::promise<void> release_;
    bool released_ = false;
    std::thread thread_;
};

TEST_F(WinClipboardAccessTest, AHungOwnerIsGivenUp) {
    const SilentThread hung(
        [](HWND window) {
            EXPECT_TRUE(OpenClipboard(window) && EmptyClipboard());
            SetClipboardData(CF_UNICODETEXT, nullptr);
            CloseClipboard();
        },
        [] {});
    const ULONGLONG start = GetTickCount64();
    EXPECT_EQ(WinClipboard().UnicodeText(), u"");
    snapshot_.Take();
    // To read it takes 20 seconds and more.
    EXPECT_LT(GetTickCount64() - start, 10'000U);
    EXPECT_THAT(log_.Lines, SizeIs(1));
}

TEST_F(WinClipboardAccessTest, AProgramThatHoldsTheClipboardIsWaitedForAtTheEnd) {
    Put({{CF_TEXT, MemoryOf({"text", 5})}});
    EXPECT_TRUE(snapshot_.Take());
    PutOther();
    SilentThread holder([](HWND window) { EXPECT_TRUE(OpenClipboard(window)); },
                        [] { CloseClipboard(); });

    CClipboardSnapshot second(clipboard_, log_);
    EXPECT_FALSE(second.Take());

    constexpr DWORD kHeldMs = 5000;
    std::thread later([&] {
        Sleep(kHeldMs);
        holder.Release();
    });
    EXPECT_TRUE(snapshot_.RestoreClipboardSnapshot());
    EXPECT_EQ(WinClipboard().Text(), u"text");
    later.join();
}

}  // namespace
}  // namespace vbr
