// SPDX-License-Identifier: MIT
#include "platform/win32/win_clipboard_access.h"

#include "platform/win32/windows.h"

#include <array>
#include <cstring>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string_view>
#include <thread>
#include <utility>

#include "fakes/memory_log.h"
#include "platform/clipboard_snapshot.h"
#include "platform/clipboard_text.h"
#include "platform/win32/win_ansi_text.h"
#include "windows/global_memory.h"
#include "windows/message_window.h"
#include "windows/pixels.h"

namespace vbr {
namespace {

std::u16string UnicodeText() {
    WinClipboardAccess clipboard(nullptr);
    return ReadUnicodeText(clipboard);
}

std::u16string AnyText() {
    WinClipboardAccess clipboard(nullptr);
    const auto session = clipboard.Open(0);
    return session ? ReadAnyText(*session, WinAnsiText()) : u"";
}

bool EmptyClipboardNow() {
    const auto session = WinClipboardAccess(nullptr).Open(0);
    return session && session->Empty();
}

using testing::AnyOf;
using testing::Contains;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

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

using Pixels = std::array<DWORD, 12>;
constexpr Pixels kPixels = {0xFF010203, 0x80040506, 0, 0x00FFFFFF, 0x12345678};

// With 24 bits a pixel in memory, or as the device has it.
HBITMAP MakeBitmap(bool inMemory) {
    const BITMAPINFO info = PixelLayout(4, 3);
    BITMAPINFO own = info;
    own.bmiHeader.biBitCount = 24;
    HDC screen = GetDC(nullptr);
    void* bits = nullptr;
    HBITMAP bitmap = inMemory ? CreateDIBSection(screen, &own, DIB_RGB_COLORS, &bits, nullptr, 0)
                              : CreateCompatibleBitmap(screen, 4, 3);
    SetDIBits(screen, bitmap, 0, 3, kPixels.data(), &info, DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    return bitmap;
}

HENHMETAFILE MakeEnhancedMetafile() {
    HDC canvas = CreateEnhMetaFileW(nullptr, nullptr, nullptr, L"a\0b\0");
    Rectangle(canvas, 1, 2, 30, 40);
    return CloseEnhMetaFile(canvas);
}

HGLOBAL MakePicture() {
    HDC canvas = CreateMetaFileW(nullptr);
    Rectangle(canvas, 1, 2, 30, 40);
    return MemoryOf(BytesOf(METAFILEPICT{MM_ANISOTROPIC, 1234, 567, CloseMetaFile(canvas)}));
}

HPALETTE MakePalette() {
    const WORD palette[] = {0x300, 2, 0x0201, 0x0003, 0x0504, PC_RESERVED << 8 | 6};
    return CreatePalette(reinterpret_cast<const LOGPALETTE*>(palette));
}

// What another program gets out of a handle.
std::string Seen(UINT format, HANDLE data) {
    std::string bytes;
    switch (format) {
        case CF_BITMAP:
        case CF_DSPBITMAP: {
            BITMAP size = {};
            GetObjectW(data, sizeof size, &size);
            std::string seen =
                BytesOf(size.bmWidth) + BytesOf(size.bmHeight) + BytesOf(size.bmBitsPixel);
            for (const DWORD pixel : PixelsOf(data)) {
                seen += BytesOf(pixel);
            }
            return seen;
        }
        case CF_PALETTE: {
            std::array<PALETTEENTRY, 300> entries = {};
            const UINT count =
                GetPaletteEntries(static_cast<HPALETTE>(data), 0, 300, entries.data());
            return BytesOf(count) + BytesOf(entries);
        }
        case CF_ENHMETAFILE:
        case CF_DSPENHMETAFILE: {
            auto* metafile = static_cast<HENHMETAFILE>(data);
            bytes.resize(GetEnhMetaFileBits(metafile, 0, nullptr));
            GetEnhMetaFileBits(metafile, static_cast<UINT>(bytes.size()),
                               reinterpret_cast<BYTE*>(bytes.data()));
            return bytes;
        }
        case CF_METAFILEPICT:
        case CF_DSPMETAFILEPICT: {
            METAFILEPICT picture = {};
            std::memcpy(&picture, BytesOf(data).data(), sizeof picture);
            bytes.resize(GetMetaFileBitsEx(picture.hMF, 0, nullptr));
            GetMetaFileBitsEx(picture.hMF, static_cast<UINT>(bytes.size()), bytes.data());
            return bytes + BytesOf(picture.mm) + BytesOf(picture.xExt) + BytesOf(picture.yExt);
        }
        default:
            return BytesOf(data);
    }
}

std::vector<std::pair<UINT, std::string>> SeenContent() {
    std::vector<std::pair<UINT, std::string>> seen;
    EXPECT_TRUE(OpenClipboard(nullptr));
    for (UINT format = 0; (format = EnumClipboardFormats(format)) != 0;) {
        seen.emplace_back(format, Seen(format, GetClipboardData(format)));
    }
    CloseClipboard();
    return seen;
}

// Without the marks that a restored content has; how many there were.
std::size_t TakeMarksFrom(std::vector<std::pair<UINT, std::string>>& seen) {
    return std::erase_if(seen, [](const auto& item) {
        const std::vector<ClipboardBlock> marks = PassingMarks();
        return std::any_of(marks.begin(), marks.end(), [&item](const ClipboardBlock& mark) {
            return RegisterClipboardFormatW(reinterpret_cast<const wchar_t*>(mark.Name.c_str())) ==
                       item.first &&
                   item.second == std::string(4, '\0');
        });
    });
}

using Content = std::vector<std::pair<UINT, HANDLE>>;

class WinClipboardAccessTest : public testing::Test {
  protected:
    void Put(const Content& content) {
        EXPECT_TRUE(OpenClipboard(foreign_.Get()) && EmptyClipboard());
        for (const auto& [format, handle] : content) {
            EXPECT_TRUE(SetClipboardData(format, handle) || !handle) << format;
        }
        CloseClipboard();
    }
    void PutOther() { Put({{CF_UNICODETEXT, MemoryOf({"o\0\0", 4})}}); }

    MessageWindow own_;
    MessageWindow foreign_;
    WinClipboardAccess clipboard_{own_.Get()};
    MemoryLog log_;
    CClipboardSnapshot snapshot_{clipboard_, log_};
};

TEST_F(WinClipboardAccessTest, EveryFormatComesBackAsItWas) {
    const UINT rtf = RegisterClipboardFormatW(L"Rich Text Format");
    const UINT html = RegisterClipboardFormatW(L"HTML Format");
    const UINT own = RegisterClipboardFormatW(L"Vellumbridge test format");
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
        {"a DIB with alpha values",
         {{CF_DIB, MemoryOf(BytesOf(PixelLayout(4, 3).bmiHeader) + BytesOf(kPixels))}}},
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
        const auto before = SeenContent();
        EXPECT_GE(before.size(), test.Given.size());
        EXPECT_TRUE(snapshot_.Take());
        PutOther();
        EXPECT_NE(SeenContent(), before);
        snapshot_.NoteOwnContent();
        EXPECT_TRUE(snapshot_.RestoreClipboardSnapshot());
        // What the system makes may stand in another order.
        auto after = SeenContent();
        EXPECT_EQ(TakeMarksFrom(after), 4U);
        EXPECT_THAT(after, testing::UnorderedElementsAreArray(before));
        EXPECT_EQ(GetClipboardOwner(), own_.Get());
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
    snapshot_.NoteOwnContent();
    EXPECT_TRUE(snapshot_.RestoreClipboardSnapshot());
    const auto seen = SeenContent();
    EXPECT_THAT(seen, Contains(std::pair<UINT, std::string>(CF_TEXT, {"text", 5})));
    for (const UINT format : {CF_OWNERDISPLAY, CF_PRIVATEFIRST, CF_GDIOBJFIRST}) {
        EXPECT_THAT(seen, Not(Contains(testing::Key(format))));
    }
}

TEST_F(WinClipboardAccessTest, ABlockCanBeWrittenMoreThanOnce) {
    for (const std::uint32_t format : {CF_BITMAP, CF_METAFILEPICT}) {
        Put({{format, format == CF_BITMAP ? MakeBitmap(true) : MakePicture()}});
        const auto before = SeenContent();
        const ClipboardBlock block = clipboard_.Open(0)->Read(format).value();
        for (int i = 0; i < 2; ++i) {
            const auto session = clipboard_.Open(0);
            EXPECT_TRUE(session->Empty() && session->Write(block));
        }
        EXPECT_EQ(SeenContent(), before);
    }
}

TEST_F(WinClipboardAccessTest, TheContentOutlivesTheWindowThatWouldOwnIt) {
    Put({{CF_TEXT, MemoryOf({"text", 5})}});
    EXPECT_TRUE(snapshot_.Take());
    PutOther();
    snapshot_.NoteOwnContent();
    own_.Destroy();
    EXPECT_TRUE(snapshot_.RestoreClipboardSnapshot());
    EXPECT_EQ(AnyText(), u"text");
}

TEST_F(WinClipboardAccessTest, TextEndsAtItsTerminatorOrWithItsBlockAndGoesByEmpty) {
    const auto textOf = [this](UINT format, std::string_view bytes) {
        Put({{format, MemoryOf(bytes)}});
        return AnyText();
    };
    EXPECT_EQ(textOf(CF_UNICODETEXT, {"\x16\x04=\xD8\0\xDE\0\0r\0", 10}), u"Ж😀");
    EXPECT_EQ(UnicodeText(), u"Ж😀");
    // The system may put the missing terminator in the place of the last character.
    EXPECT_THAT(textOf(CF_UNICODETEXT, {"o\0p\0e\0n", 8}), AnyOf(u"open", u"ope"));
    EXPECT_EQ(textOf(CF_TEXT, {"plain\0", 6}), u"plain");
    EXPECT_TRUE(EmptyClipboardNow());
    EXPECT_EQ(AnyText(), u"");
}

// A window whose thread answers no message until this goes.
class HungWindow {
  public:
    explicit HungWindow(const std::function<void(HWND)>& begin, DWORD milliseconds = INFINITE)
        : thread_([this, begin, milliseconds] {
              const MessageWindow window;
              begin(window.Get());
              SetEvent(ready_);
              WaitForSingleObject(release_, milliseconds);
              CloseClipboard();
          }) {
        WaitForSingleObject(ready_, INFINITE);
    }
    ~HungWindow() {
        SetEvent(release_);
        thread_.join();
        CloseHandle(ready_);
        CloseHandle(release_);
    }
    HungWindow(const HungWindow&) = delete;
    HungWindow& operator=(const HungWindow&) = delete;

  private:
    HANDLE ready_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    HANDLE release_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    std::thread thread_;
};

TEST_F(WinClipboardAccessTest, AHungOwnerIsGivenUp) {
    const HungWindow hung([](HWND window) {
        EXPECT_TRUE(OpenClipboard(window) && EmptyClipboard());
        SetClipboardData(CF_UNICODETEXT, nullptr);
        CloseClipboard();
    });
    const ULONGLONG start = GetTickCount64();
    EXPECT_EQ(UnicodeText(), u"");
    EXPECT_FALSE(snapshot_.Take());
    // To read it takes 20 seconds and more.
    EXPECT_LT(GetTickCount64() - start, 10'000U);
    EXPECT_THAT(log_.Lines, SizeIs(1));
}

TEST_F(WinClipboardAccessTest, AProgramThatHoldsTheClipboardForAMomentIsWaitedFor) {
    Put({{CF_TEXT, MemoryOf({"text", 5})}});
    EXPECT_TRUE(snapshot_.Take());
    PutOther();
    snapshot_.NoteOwnContent();
    const HungWindow holder([](HWND window) { EXPECT_TRUE(OpenClipboard(window)); }, 200);
    EXPECT_FALSE(EmptyClipboardNow());
    EXPECT_TRUE(snapshot_.RestoreClipboardSnapshot());
    EXPECT_EQ(AnyText(), u"text");
}

}  // namespace
}  // namespace vbr
