// SPDX-License-Identifier: MIT
#include "platform/win32/win_file_store.h"

#include <chrono>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

#include "fakes/temp_folder.h"
#include "platform/win32/handle.h"
#include "platform/win32/win_system_error.h"
#include "windows/access_list.h"

namespace vbr {
namespace {

using std::filesystem::path;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

const path kName = u"Привет 😀.vellumbridge";

class WinFileStoreTest : public testing::Test {
  protected:
    ~WinFileStoreTest() override { SetFileAttributesW(File().c_str(), FILE_ATTRIBUTE_NORMAL); }

    path File() const { return folder_.Path() / kName; }

    bool IsReadOnly() const {
        return (GetFileAttributesW(File().c_str()) & FILE_ATTRIBUTE_READONLY) != 0;
    }

    UniqueHandle Hold(DWORD access, DWORD share) const {
        return UniqueHandle(
            CreateFileW(File().c_str(), access, share, nullptr, OPEN_EXISTING, 0, nullptr));
    }

    // Paths of the test that no plain call may reach.
    static path Verbatim(const path& file) { return L"\\\\?\\" + file.native(); }

    void SetWriteTime(const path& name, int hoursAgo) const {
        const path file = folder_.Path() / name;
        std::filesystem::last_write_time(
            file, std::filesystem::last_write_time(file) - std::chrono::hours(hoursAgo));
    }

    std::vector<path> Files() const {
        std::vector<path> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder_.Path())) {
            names.push_back(entry.path().filename());
        }
        return names;
    }

    TempFolder folder_;
    WinFileStore store_;
};

TEST_F(WinFileStoreTest, ReplaceLeavesTheNewContentAloneAndTakesAReadOnlyMarkAway) {
    EXPECT_EQ(store_.Read(File()), std::nullopt);
    folder_.Write(kName, std::string(5000, 'o'));
    ASSERT_TRUE(SetFileAttributesW(File().c_str(), FILE_ATTRIBUTE_READONLY));
    for (const std::string& bytes : {std::string("new\r\n\0\x1A\xFF", 8), std::string()}) {
        EXPECT_FALSE(store_.Replace(File(), bytes));
        EXPECT_EQ(folder_.Read(kName), bytes);
        EXPECT_EQ(store_.Read(File()), bytes);
        EXPECT_FALSE(IsReadOnly());
    }
    EXPECT_THAT(Files(), ElementsAre(kName));
}

TEST_F(WinFileStoreTest, AReplacedFileKeepsItsRightsAndANewOneHasThoseOfAnyOtherInTheFolder) {
    folder_.Write("plain", "old");
    const std::wstring plain = AccessListOf(folder_.Path() / "plain");
    EXPECT_FALSE(store_.Replace(File(), "new"));
    EXPECT_EQ(AccessListOf(File()), plain);
    ASSERT_TRUE(SetAccess(File(), L"D:P(A;;FRFW;;;WD)"));
    const std::wstring own = AccessListOf(File());
    ASSERT_NE(own, plain);
    EXPECT_FALSE(store_.Replace(File(), "newer"));
    EXPECT_EQ(AccessListOf(File()), own);
    EXPECT_EQ(store_.Read(File()), "newer");
}

TEST_F(WinFileStoreTest, AHeldFileStaysAsItWasAndTheErrorSaysWhy) {
    folder_.Write(kName, "old");
    ASSERT_TRUE(SetFileAttributesW(File().c_str(), FILE_ATTRIBUTE_READONLY));
    UniqueHandle held = Hold(GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
    ASSERT_TRUE(IsValid(held));

    const std::optional<SystemError> error = store_.Replace(File(), "new");
    ASSERT_TRUE(error);
    EXPECT_TRUE(error->Code == ERROR_ACCESS_DENIED || error->Code == ERROR_SHARING_VIOLATION)
        << error->Code;
    EXPECT_NE(error->Text, u"");
    EXPECT_EQ(error->Text, SystemErrorOf(error->Code).Text);
    held.reset();
    EXPECT_EQ(store_.Read(File()), "old");
    EXPECT_TRUE(IsReadOnly());
    EXPECT_THAT(Files(), ElementsAre(kName));
}

TEST_F(WinFileStoreTest, AFileThatIsBeingWrittenIsNotRead) {
    folder_.Write(kName, "half");
    UniqueHandle writer = Hold(GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE);
    ASSERT_TRUE(IsValid(writer));
    EXPECT_EQ(store_.Read(File()), std::nullopt);
    writer.reset();
    EXPECT_EQ(store_.Read(File()), "half");
}

TEST_F(WinFileStoreTest, ReplaceUsesNoNameThatAnotherProcessMayUseAndTakesAwayWhatACrashLeft) {
    folder_.Write(kName, "old");
    folder_.Write("~vbr1-1.new", "left by a crash");
    folder_.Write("~vbr2-1.new", "being written");
    folder_.Write("mine.new", "a user's");
    SetWriteTime("~vbr1-1.new", 2);
    SetWriteTime("mine.new", 2);
    EXPECT_FALSE(store_.Replace(File(), "new"));
    EXPECT_EQ(store_.Read(File()), "new");
    EXPECT_THAT(Files(), UnorderedElementsAre(kName, "~vbr2-1.new", "mine.new"));
}

TEST_F(WinFileStoreTest, AFileWithANameOfFullLengthIsReplaced) {
    const path file = folder_.Path() / (std::string(242, 'x') + ".vellumbridge");
    EXPECT_FALSE(store_.Replace(file, "1"));
    EXPECT_FALSE(store_.Replace(file, "2"));
    EXPECT_EQ(store_.Read(file), "2");
    ASSERT_TRUE(DeleteFileW(Verbatim(file).c_str()));
}

TEST_F(WinFileStoreTest, WritersOfOneFileLeaveOneOfTheirTexts) {
    constexpr int kWriters = 4;
    std::vector<std::thread> writers;
    for (int i = 0; i < kWriters; ++i) {
        writers.emplace_back([this, i] {
            for (int round = 0; round < 20; ++round) {
                store_.Replace(File(), std::string(20000, static_cast<char>('a' + i)));
            }
        });
    }
    for (std::thread& writer : writers) {
        writer.join();
    }
    const std::optional<std::string> text = store_.Read(File());
    ASSERT_TRUE(text);
    EXPECT_EQ(*text, std::string(20000, text->at(0)));
    EXPECT_THAT(Files(), ElementsAre(kName));
}

TEST_F(WinFileStoreTest, AFolderIsKnownAgainByAnotherPath) {
    folder_.Write("a/b/file", "");
    folder_.Write("c/file", "");
    const std::u16string a = store_.FolderIdentity(folder_.Path() / "a");
    EXPECT_NE(a, u"");
    EXPECT_EQ(store_.FolderIdentity(folder_.Path() / "A" / "b" / ".."), a);
    EXPECT_NE(store_.FolderIdentity(folder_.Path() / "c"), a);
    EXPECT_EQ(store_.FolderIdentity(folder_.Path() / "none"), u"");
}

TEST_F(WinFileStoreTest, AFolderThatIsNotThereCannotBeListedAndAnEmptyOneCan) {
    std::vector<FolderEntry> entries;
    EXPECT_FALSE(store_.List(folder_.Path(), entries));
    EXPECT_TRUE(entries.empty());
    EXPECT_EQ(store_.List(folder_.Path() / "none", entries).value().Code, ERROR_PATH_NOT_FOUND);
}

}  // namespace
}  // namespace vbr
