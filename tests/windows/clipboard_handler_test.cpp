// SPDX-License-Identifier: MIT
#include "history/win32/clipboard_handler.h"

#include <cstring>
#include <gtest/gtest.h>

#include "fakes/memory_log.h"
#include "fakes/native_profile_store.h"
#include "fakes/temp_folder.h"
#include "platform/object_names.h"
#include "platform/win32/wide.h"
#include "platform/win32/win_fault_catcher.h"
#include "platform/win32/win_named_objects.h"

namespace vbr {
namespace {

namespace fs = std::filesystem;

constexpr UINT kControl = 1333;
constexpr ULONGLONG kPatienceMs = 30000;

HGLOBAL MemoryOf(std::string_view bytes) {
    HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
    std::memcpy(GlobalLock(memory), bytes.data(), bytes.size());
    GlobalUnlock(memory);
    return memory;
}

UINT Format(const wchar_t* name) {
    return RegisterClipboardFormatW(name);
}

// The program's main window: takes the notices.
class Parent : public WindowBase {
  public:
    std::vector<std::uint32_t> Notices;

    bool Make() {
        WindowCreation creation;
        creation.ClassName = L"HandlerParent";
        creation.Parent = HWND_MESSAGE;
        return Create(creation);
    }

  protected:
    std::optional<LRESULT> OnMessage(UINT message, WPARAM control, LPARAM header) override {
        if (message != WM_NOTIFY || control != kControl) {
            return std::nullopt;
        }
        const auto& notice = *reinterpret_cast<const HistoryNotice*>(header);
        Notices.push_back(notice.Header.code * 10 + notice.Parameter);
        return 0;
    }
};

class Handler : public testing::Test {
  protected:
    Handler() {
        parent_.Make();
        settings_.SaveClipboardHistory = true;
        settings_.ClipboardHistoryMax = 30;
        owner_ = CreateWindowExW(0, L"STATIC", L"Copying window", 0, 0, 0, 0, 0, HWND_MESSAGE,
                                 nullptr, nullptr, nullptr);
    }
    ~Handler() override {
        end_->Set();
        handler_.Destroy();
        DestroyWindow(owner_);
    }

    static void Pump() {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            DispatchMessageW(&message);
        }
    }
    template <typename Condition>
    static bool PumpUntil(const Condition& holds) {
        const ULONGLONG end = GetTickCount64() + kPatienceMs;
        while (!holds() && GetTickCount64() < end) {
            Pump();
            Sleep(5);
        }
        return holds();
    }
    void Put(const std::vector<std::pair<UINT, HANDLE>>& blocks) {
        ASSERT_TRUE(PumpUntil([this] { return OpenClipboard(owner_) != 0; }));
        EmptyClipboard();
        for (const auto& [format, block] : blocks) {
            SetClipboardData(format, block);
        }
        CloseClipboard();
    }
    void PutText(std::u16string_view text) {
        const ItemBytes bytes = TextBytes(text);
        Put({{CF_UNICODETEXT,
              MemoryOf({reinterpret_cast<const char*>(bytes.data()), bytes.size()})}});
    }
    bool WaitForText(std::u16string_view text) {
        return PumpUntil(
            [&] { return !handler_.IsEmpty() && handler_.GetItem(0)->WideText() == text; });
    }
    bool WaitUntilSaved() {
        return PumpUntil([this] { return handler_.Queue().CopyUnsaved().empty(); });
    }
    std::size_t FileCount() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(Folder()), fs::directory_iterator()));
    }
    fs::path Folder() const { return temp_.Path() / "ClipboardHistory"; }
    bool Start(bool captureOnCreate = false) {
        return handler_.Create(parent_.Handle(), kControl, captureOnCreate);
    }

    TempFolder temp_;
    NativeProfileStore profile_;
    CVBRSettings settings_{profile_, {temp_.Path() / "Settings.ini", {}, {}, u"", u""}};
    MemoryLog log_;
    WinFaultCatcher faults_;
    std::unique_ptr<NamedEvent> end_ =
        std::make_unique<WinNamedEvent>(UniqueHandle(CreateEventW(nullptr, TRUE, FALSE, nullptr)));
    Parent parent_;
    HWND owner_ = nullptr;
    CVBRWndClipboardHandler handler_{{settings_, Folder(), faults_, *end_, log_}};
};

TEST_F(Handler, ACopyBecomesAnItemWithItsOwnerAndReachesTheDisk) {
    ASSERT_TRUE(Start());
    PutText(u"http://a.b/ жук");
    ASSERT_TRUE(WaitForText(u"http://a.b/ жук"));
    const CCHItem& item = *handler_.GetItem(0);
    EXPECT_EQ(item.sourceUrl, u"http://a.b/");
    EXPECT_EQ(item.wndName, u"Copying window");
    EXPECT_TRUE(EndsWithNoCase(item.exeName, u".exe"));
    EXPECT_EQ(parent_.Notices, std::vector<std::uint32_t>{28160});
    EXPECT_TRUE(WaitUntilSaved());
    EXPECT_TRUE(fs::exists(Folder() / "vellumbridge_cb1.info"));
}

TEST_F(Handler, FormatsComeByTheirRank) {
    settings_.ClipboardFormats[2] = true;
    ASSERT_TRUE(Start());
    const auto isNewest = [this](ItemFormat format) {
        return PumpUntil(
            [&] { return !handler_.IsEmpty() && handler_.GetItem(0)->format == format; });
    };
    using namespace std::string_view_literals;
    Put({{CF_UNICODETEXT, MemoryOf("t\0\0\0"sv)},
         {Format(L"Rich Text Format"), MemoryOf("{\\rtf1 t}\0"sv)},
         {Format(L"HTML Format"), MemoryOf("SourceURL:http://h/\r\n<b>\0"sv)}});
    ASSERT_TRUE(isNewest(CHF_RTF));
    EXPECT_EQ(handler_.GetItem(0)->sourceUrl, u"http://h/");
    EXPECT_TRUE(handler_.GetItem(0)->HasFormat(CHF_HTML));
    Put({{CF_BITMAP, CreateBitmap(3, 2, 1, 1, nullptr)}});
    ASSERT_TRUE(isNewest(CHF_BITMAP));
    EXPECT_EQ(handler_.GetItem(0)->Picture()->Header()->Width, 3);
    Put({{CF_TEXT, MemoryOf("ansi\0"sv)}});
    ASSERT_TRUE(isNewest(CHF_UNICODE_TEXT));
    EXPECT_EQ(handler_.GetItem(0)->WideText(), u"ansi");
    // Promised and never given: the owner knows no WM_RENDERFORMAT.
    Put({{CF_UNICODETEXT, nullptr}});
    PutText(u"last");
    ASSERT_TRUE(WaitForText(u"last"));
    EXPECT_EQ(handler_.GetCount(), 4U);
}

TEST_F(Handler, BitmapsThatAreEqualAreOneItem) {
    settings_.ClipboardFormats[2] = true;
    ASSERT_TRUE(Start());
    const BYTE dark[] = {0, 0, 0, 0};
    const BYTE light[] = {0xFF, 0, 0xFF, 0};
    for (const BYTE* bits : {dark, light, dark}) {
        const std::size_t before = parent_.Notices.size();
        Put({{CF_BITMAP, CreateBitmap(8, 2, 1, 1, bits)}});
        ASSERT_TRUE(PumpUntil([&] { return parent_.Notices.size() > before; }));
    }
    EXPECT_EQ(handler_.GetCount(), 2U);
}

TEST_F(Handler, OwnWritesAreIgnoredUntilTheBracketEnds) {
    ASSERT_TRUE(Start());
    WinNamedObjects objects;
    objects.Signal(kEventStartCopy);
    ASSERT_TRUE(PumpUntil([this] { return handler_.MyCopy().IsMyCopy(); }));
    PutText(u"own");
    ASSERT_TRUE(PumpUntil([this] {
        return std::find(log_.Lines.begin(), log_.Lines.end(), u"My copy process detected") !=
               log_.Lines.end();
    }));
    objects.Signal(kEventEndCopy);
    ASSERT_TRUE(PumpUntil([this] { return !handler_.MyCopy().IsMyCopy(); }));
    PutText(u"theirs");
    ASSERT_TRUE(WaitForText(u"theirs"));
    EXPECT_EQ(handler_.GetCount(), 1U);
}

TEST_F(Handler, ABlockEndsByItself) {
    ASSERT_TRUE(Start());
    handler_.AsynBlockClipboardHandler();
    EXPECT_TRUE(handler_.MyCopy().IsMyCopy());
    EXPECT_TRUE(PumpUntil([this] { return !handler_.MyCopy().IsMyCopy(); }));
}

TEST_F(Handler, ProtectTrimDeleteClearAndUndoReachTheFiles) {
    ASSERT_TRUE(Start());
    for (const char16_t* text : {u"a", u"b", u"c", u"d"}) {
        PutText(text);
        ASSERT_TRUE(WaitForText(text));
    }
    ASSERT_TRUE(WaitUntilSaved());
    EXPECT_EQ(FileCount(), 8U);
    CCHQueue& queue = handler_.Queue();
    queue.SetProtected(3, true);
    const fs::path data = queue.GetItem(3)->dataPath;
    EXPECT_NE(GetFileAttributesW(data.c_str()) & FILE_ATTRIBUTE_READONLY, 0U);
    queue.Trim(1);
    EXPECT_EQ(FileCount(), 4U);
    EXPECT_TRUE(fs::exists(data));
    queue.Delete({0}, true);
    EXPECT_EQ(FileCount(), 2U);
    queue.Clear();
    EXPECT_EQ(FileCount(), 0U);
    queue.Undo();
    queue.Undo();
    handler_.RequestSave();
    ASSERT_TRUE(WaitUntilSaved());
    EXPECT_EQ(FileCount(), 4U);
}

TEST_F(Handler, StoredItemsComeBackWithTheNextStart) {
    ASSERT_TRUE(Start());
    PutText(u"kept");
    ASSERT_TRUE(WaitForText(u"kept"));
    ASSERT_TRUE(WaitUntilSaved());
    handler_.Destroy();
    EXPECT_FALSE(handler_.IsKeeping());
    EXPECT_EQ(handler_.GetCount(), 1U);
    CVBRWndClipboardHandler next({settings_, Folder(), faults_, *end_, log_});
    ASSERT_TRUE(next.Create(parent_.Handle(), kControl, true));
    // The clipboard's own text, and the stored one beside it.
    EXPECT_TRUE(PumpUntil([&] { return next.GetCount() == 2; }));
    EXPECT_EQ(next.GetItem(1)->storeState, StoreState::Loaded);
    EXPECT_EQ(next.GetItem(1)->WideText(), u"kept");
    next.Destroy();
}

TEST_F(Handler, AddressesThatAreNoItemsAreIgnored) {
    ASSERT_TRUE(Start());
    for (const std::u16string_view name :
         {kMessageHistoryLoaded, kMessageItemSaved, kMessageAddItem, kMessageItemStored}) {
        for (const LPARAM address : {LPARAM{0}, LPARAM{8}, reinterpret_cast<LPARAM>(this)}) {
            EXPECT_EQ(SendMessageW(handler_.Handle(), RegisterWindowMessageW(Wide(name.data())), 0,
                                   address),
                      0);
        }
    }
    CCHItem item(CHF_UNICODE_TEXT, 0, {});
    item.SetData(TextBytes(u"sent"));
    EXPECT_EQ(SendMessageW(handler_.Handle(), RegisterWindowMessageW(Wide(kMessageAddItem.data())),
                           0, reinterpret_cast<LPARAM>(&item)),
              1);
    EXPECT_EQ(handler_.GetItem(0)->WideText(), u"sent");
}

TEST_F(Handler, AMethodThatIsNoneStopsTheStart) {
    settings_.ClipboardSpyMethod = 7;
    EXPECT_FALSE(Start());
    EXPECT_FALSE(handler_.IsKeeping());
    settings_.ClipboardSpyMethod = 0;
    EXPECT_TRUE(Start());
    EXPECT_EQ(handler_.Tracking(), TrackingState::Viewer);
    PutText(u"by the chain");
    EXPECT_TRUE(WaitForText(u"by the chain"));
}

TEST(StampedFiles, ANewFileIsWholeAndNoOtherIsTouched) {
    TempFolder temp;
    WinStampedFiles files;
    const fs::path path = temp.Path() / L"жук.txt";
    const ItemBytes bytes = TextBytes("abc");
    const std::span<const std::byte> pieces[] = {bytes, bytes};
    EXPECT_FALSE(files.CreateNew(path, pieces, {FileTicks{1} << 56, true}));
    EXPECT_EQ(files.CreateNew(path, pieces, {})->Code, kErrorFileExists);
    EXPECT_EQ(files.Read(path)->Bytes.size(), 8U);
    EXPECT_NE(GetFileAttributesW(path.c_str()) & FILE_ATTRIBUTE_READONLY, 0U);
    EXPECT_FALSE(files.Delete(path));
    EXPECT_FALSE(fs::exists(path));
    EXPECT_FALSE(files.Delete(path));
    EXPECT_FALSE(files.Read(temp.Path()));
    EXPECT_TRUE(files.CreateNew(temp.Path() / "none" / "a", pieces, {}));
}

}  // namespace
}  // namespace vbr
