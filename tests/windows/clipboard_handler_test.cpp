// SPDX-License-Identifier: MIT
#include "history/win32/clipboard_handler.h"

#include <gtest/gtest.h>
#include <thread>

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
#include "windows/access_list.h"
#include "windows/message_window.h"
#include "windows/pump.h"

namespace vbr {
namespace {

namespace fs = std::filesystem;

class Handler : public testing::Test {
  protected:
    Handler() {
        settings_.SaveClipboardHistory = true;
        EXPECT_TRUE(handler_.Create(parent_.Get(), 1333, false));
    }
    ~Handler() override { handler_.Destroy(); }

    TempFolder temp_;
    NativeProfileStore profile_;
    CVBRSettings settings_{profile_, {temp_.Path() / "Settings.ini", {}, {}, u"", u""}};
    MemoryLog log_;
    WinFaultCatcher faults_;
    std::unique_ptr<NamedEvent> end_ =
        std::make_unique<WinNamedEvent>(UniqueHandle(CreateEventW(nullptr, TRUE, FALSE, nullptr)));
    WinClock clock_;
    MessageWindow parent_;
    WinAnsiText ansi_;
    WinBitmaps bitmaps_;
    WinProgramWindows windows_;
    WinFileStore store_;
    WinStampedFiles files_;
    WinClipboardAccess access_{nullptr};
    MyCopyGuard myCopy_{access_, GetCurrentProcessId(), log_};
    CVBRWndClipboardHandler handler_{{.Settings = settings_,
                                      .Folder = temp_.Path() / "ClipboardHistory",
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
                                      .SaveEnded = [] {},
                                      .Log = log_}};
};

TEST_F(Handler, AnOutsiderEndsTheBlockOfOwnCopies) {
    myCopy_.Add();
    SendMessageW(handler_.Handle(), WM_DELAY_UNLOCK, 0, 0);
    EXPECT_FALSE(myCopy_.IsMyCopy());
}

TEST_F(Handler, AnItemIsTakenFromItsAddressAloneAndSavedWhenThatIsAskedFor) {
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
    handler_.RequestSave();
    EXPECT_TRUE(PumpUntil([this] { return handler_.Queue().CopyUnsaved().empty(); }));
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

TEST(StampedFiles, AFileIsMovedInWholeAndOverAnotherOnlyWhereThatIsWanted) {
    TempFolder temp;
    WinStampedFiles files;
    const fs::path path = temp.Path() / L"жук.info";
    EXPECT_FALSE(files.MoveIn(path, "first", {FileTicks{1} << 56, true}, false));
    EXPECT_EQ(files.MoveIn(path, "second", {}, false)->Code, kErrorFileExists);
    EXPECT_EQ(temp.Read(path), "first");
    EXPECT_NE(GetFileAttributesW(path.c_str()) & FILE_ATTRIBUTE_READONLY, 0U);
    EXPECT_FALSE(files.MoveIn(path, "third", {}, true));
    EXPECT_EQ(temp.Read(path), "third");
    EXPECT_TRUE(files.MoveIn(temp.Path() / "none" / "a", "x", {}, false));
    EXPECT_EQ(std::distance(fs::directory_iterator(temp.Path()), {}), 1);
}

TEST(StampedFiles, AFileIsHeldByOneAtATimeAndGoesWhenItIsLetGo) {
    TempFolder temp;
    WinStampedFiles files;
    const fs::path path = temp.Path() / "lock";
    auto held = files.Hold(path);
    EXPECT_TRUE(held && fs::exists(path));
    EXPECT_FALSE(files.Hold(path));
    std::thread([&held] {
        Sleep(50);
        held.reset();
    }).detach();
    auto next = files.Hold(path);
    EXPECT_TRUE(next);
    next.reset();
    EXPECT_FALSE(fs::exists(path));
}

TEST(StampedFiles, NewFilesHaveTheRightsOfTheirFolder) {
    TempFolder temp;
    WinStampedFiles files;
    temp.Write("plain", "x");
    const ItemBytes bytes = TextBytes("abc");
    const std::span<const std::byte> piece(bytes);
    EXPECT_FALSE(files.CreateNew(temp.Path() / "data", std::span(&piece, 1), {}));
    EXPECT_FALSE(files.MoveIn(temp.Path() / "description", "x", {}, false));
    const std::wstring plain = AccessListOf(temp.Path() / "plain");
    if (plain == AccessListOfOpenFileIn(temp.Path())) {
        GTEST_SKIP() << "A file that is open to everybody looks like any other here";
    }
    EXPECT_EQ(AccessListOf(temp.Path() / "data"), plain);
    EXPECT_EQ(AccessListOf(temp.Path() / "description"), plain);
}

}  // namespace
}  // namespace vbr
