// SPDX-License-Identifier: MIT
#include "history/win32/clipboard_handler.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "fakes/memory_log.h"
#include "fakes/native_profile_store.h"
#include "fakes/temp_folder.h"
#include "platform/object_names.h"
#include "platform/win32/wide.h"
#include "platform/win32/win_ansi_text.h"
#include "platform/win32/win_bitmaps.h"
#include "platform/win32/win_clipboard_access.h"
#include "platform/win32/win_clock.h"
#include "platform/win32/win_fault_catcher.h"
#include "platform/win32/win_file_store.h"
#include "platform/win32/win_named_objects.h"
#include "platform/win32/win_program_windows.h"
#include "platform/win32/win_stamped_files.h"
#include "windows/global_memory.h"
#include "windows/message_window.h"
#include "windows/pump.h"

namespace vbr {
namespace {

namespace fs = std::filesystem;

class Handler : public testing::Test {
  protected:
    Handler() {
        settings_.SaveClipboardHistory = true;
        settings_.ClipboardHistoryMax = 30;
    }
    ~Handler() override {
        end_->Set();
        handler_.Destroy();
    }

    void PutText(std::u16string_view text) {
        ASSERT_TRUE(PumpUntil([this] { return OpenClipboard(owner_.Get()) != 0; }));
        EmptyClipboard();
        const ItemBytes bytes = TextBytes(text);
        SetClipboardData(CF_UNICODETEXT,
                         MemoryOf({reinterpret_cast<const char*>(bytes.data()), bytes.size()}));
        CloseClipboard();
    }
    bool WaitForText(std::u16string_view text) {
        return PumpUntil(
            [&] { return !handler_.IsEmpty() && handler_.GetItem(0)->WideText() == text; });
    }
    bool WaitUntilSaved() {
        return PumpUntil([this] { return handler_.Queue().CopyUnsaved().empty(); });
    }
    fs::path Folder() const { return temp_.Path() / "ClipboardHistory"; }
    bool Start() { return handler_.Create(parent_.Get(), 1333, false); }

    TempFolder temp_;
    NativeProfileStore profile_;
    CVBRSettings settings_{profile_, {temp_.Path() / "Settings.ini", {}, {}, u"", u""}};
    MemoryLog log_;
    WinFaultCatcher faults_;
    std::unique_ptr<NamedEvent> end_ =
        std::make_unique<WinNamedEvent>(UniqueHandle(CreateEventW(nullptr, TRUE, FALSE, nullptr)));
    WinClock clock_;
    MyCopyGuard myCopy_{clock_, log_};
    MessageWindow parent_;
    MessageWindow owner_;
    WinAnsiText ansi_;
    WinBitmaps bitmaps_;
    WinProgramWindows windows_;
    WinFileStore store_;
    WinStampedFiles files_;
    WinClipboardAccess access_{nullptr};
    CVBRWndClipboardHandler handler_{{.Settings = settings_,
                                      .Folder = Folder(),
                                      .Clock = clock_,
                                      .Ansi = ansi_,
                                      .Bitmaps = bitmaps_,
                                      .Windows = windows_,
                                      .Store = store_,
                                      .Files = files_,
                                      .Access = access_,
                                      .Faults = faults_,
                                      .MyCopy = myCopy_,
                                      .ProgramEnd = *end_,
                                      .Log = log_}};
};

TEST_F(Handler, OwnWritesAreIgnoredUntilAnOutsiderEndsTheBlock) {
    myCopy_.Add();
    ASSERT_TRUE(Start());
    EXPECT_FALSE(myCopy_.IsMyCopy());
    myCopy_.AsynBlockClipboardHandler();
    PutText(u"own");
    ASSERT_TRUE(PumpUntil([this] { return log_.Tells(u"My copy process detected"); }));
    SendMessageW(handler_.Handle(), WM_DELAY_UNLOCK, 0, 0);
    PutText(u"theirs");
    ASSERT_TRUE(WaitForText(u"theirs"));
    EXPECT_EQ(handler_.GetCount(), 1U);
}

TEST_F(Handler, ADeletedItemThatComesBackIsSavedAgain) {
    ASSERT_TRUE(Start());
    PutText(u"text");
    ASSERT_TRUE(WaitForText(u"text"));
    EXPECT_TRUE(EndsWithNoCase(handler_.GetItem(0)->exeName, u".exe"));
    ASSERT_TRUE(WaitUntilSaved());
    const fs::path file = Folder() / "vellumbridge_cb1.info";
    EXPECT_TRUE(fs::exists(file));
    handler_.Queue().Delete({0}, true);
    EXPECT_FALSE(fs::exists(file));
    handler_.Queue().Undo();
    handler_.RequestSave();
    EXPECT_TRUE(WaitUntilSaved());
    EXPECT_TRUE(fs::exists(file));
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
