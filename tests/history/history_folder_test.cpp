// SPDX-License-Identifier: MIT
#include "history/history_folder.h"

#include <gtest/gtest.h>

#include "fakes/history_fixture.h"

namespace vbr {
namespace {

using Names = std::set<std::string>;

class HistoryFiles : public testing::Test, protected HistoryFixture {
  protected:
    // Writes an ".info" file by hand.
    void WriteInfoFile(const std::string& name, const std::string& lines) {
        Folder.Make();
        Temp.Write("ClipboardHistory/" + name, "[Files]\r\n" + lines);
    }
    void WriteFile(const std::string& name, const std::string& bytes) {
        Temp.Write("ClipboardHistory/" + name, bytes);
    }
    std::string ReadFile(const std::string& name) { return Temp.Read("ClipboardHistory/" + name); }
};

TEST_F(HistoryFiles, EveryFormatComesBackAsItWas) {
    auto html = std::shared_ptr<CCHItem>(ByteItem(CHF_HTML, "<i>ж</i>"));
    auto item = ByteItem(CHF_RTF, "{\\rtf1 x}", 3);
    item->alternatives.push_back(html);
    item->wndName = u" \"Title\" ";
    item->exeName = u"C:\\Ünder\\ж.exe";
    item->sourceUrl = std::u16string(300, u'u');
    Add(std::move(item));
    Add(ByteItem(CHF_ANSI_TEXT, "old", 1));
    Add(TextItem(u"жук\U0001F600", 2));
    Add(ByteItem(CHF_KELPNOTES, std::string_view("k\0\1", 3), 4));
    Save();
    EXPECT_EQ(FileNames(),
              (Names{"vellumbridge_cb1.info", "vellumbridge_cb2.info", "vellumbridge_cb3.info",
                     "vellumbridge_cb4.info", "clipboard_history1.rtf", "clipboard_history1.html",
                     "clipboard_history1.txt", "clipboard_history1.knd",
                     "Unicode_clipboard_history1.txt"}));
    EXPECT_EQ(ReadFile("Unicode_clipboard_history1.txt").substr(0, 4), "\xFF\xFE\x36\x04");

    CCHQueue loaded(Folder);
    Folder.Load(loaded);
    EXPECT_EQ(HistoryFixture::TextsOf(loaded), u"k {\\rtf1 x} жук\U0001F600 old");
    EXPECT_EQ(loaded.GetItem(0)->Data(), Queue.GetItem(0)->Data());
    const CCHItem& rtf = *loaded.GetItem(1);
    EXPECT_EQ(rtf.time, TimeAt(3));
    EXPECT_EQ(rtf.wndName, u" \"Title\" ");
    EXPECT_EQ(rtf.exeName, u"C:\\Ünder\\ж.exe");
    EXPECT_EQ(rtf.sourceUrl, std::u16string(259, u'u'));
    EXPECT_EQ(rtf.storeState, StoreState::Loaded);
    ASSERT_TRUE(rtf.HasFormat(CHF_HTML));
    EXPECT_EQ(rtf.FindFormat(CHF_HTML)->Data(), html->Data());
}

TEST_F(HistoryFiles, DescriptionEndsWithTheTimeAndNamesTheFiles) {
    Add(TextItem(u"a", 1));
    Save();
    const std::string bytes = ReadFile("vellumbridge_cb1.info");
    std::u16string text(reinterpret_cast<const char16_t*>(bytes.data()), bytes.size() / 2);
    EXPECT_EQ(text,
              u"\uFEFF[Files]\r\nDataType=1\r\nProtected=0\r\nWndName=\r\nExeName=\r\n"
              u"File0=Unicode_clipboard_history1.txt\r\nTime=133594524010000000\r\n");
}

TEST_F(HistoryFiles, NumbersOfDeletedItemsServeAgain) {
    AddTexts(u"abc");
    Save();
    Queue.Delete({1}, false);
    EXPECT_EQ(FileNames().size(), 4U);
    Add(TextItem(u"d"));
    Save();
    EXPECT_TRUE(FileNames().contains("Unicode_clipboard_history2.txt"));
    EXPECT_EQ(FileNames().size(), 6U);
}

TEST_F(HistoryFiles, TrimDeleteAndClearTakeTheFilesWithThem) {
    AddTexts(u"abc");
    Save();
    Queue.SetProtected(0, true);
    EXPECT_EQ(Reloaded(), u"c! b a");
    Queue.Trim(2);
    EXPECT_EQ(Reloaded(), u"c! b");
    Queue.Clear();
    EXPECT_EQ(FileNames(), Names{});
    Save();
    EXPECT_EQ(Reloaded(), u"c!");
    Queue.Undo();
    Save();
    EXPECT_EQ(Reloaded(), u"c! b");
}

TEST_F(HistoryFiles, EditedItemKeepsItsDescriptionAndGetsNewData) {
    Add(TextItem(u"a"));
    Save();
    Queue.ChangeItem(0, [](CCHItem& item) {
        item.SetData(TextBytes(u"A"));
        return true;
    });
    Save();
    EXPECT_EQ(FileNames(), (Names{"vellumbridge_cb1.info", "Unicode_clipboard_history1.txt",
                                  "Unicode_clipboard_history2.txt"}));
    EXPECT_EQ(Reloaded(), u"A");
}

TEST_F(HistoryFiles, SaveThatWasOvertakenDoesNotCount) {
    AddTexts(u"ab");
    Queue.SetProtected(0, true);
    Folder.Make();
    Folder.Save(Queue.CopyUnsaved(), [this](const CCHItem& saved) {
        if (saved.WideText() == u"a") {
            Queue.SetProtected(1, true);
        } else {
            Queue.Clear();
        }
        Queue.NoteSaved(saved);
    });
    EXPECT_EQ(Queue.GetItem(0)->storeState, StoreState::NotStored);
    EXPECT_EQ(FileNames(), Names{});
    Save();
    EXPECT_EQ(Reloaded(), u"b! a!");
}

TEST_F(HistoryFiles, FailedSaveLeavesNothingBehindAndIsTriedAgain) {
    Add(TextItem(u"a"));
    Files.Broken = SystemError{112, u"the disk is full"};
    Save();
    EXPECT_NE(Log.Lines.back().find(u"the disk is full"), std::u16string::npos);
    Files.Broken.reset();
    Store.ReplaceError = SystemError{112, u"the disk is full"};
    Save();
    EXPECT_EQ(FileNames(), Names{});
    Store.ReplaceError.reset();
    Save();
    EXPECT_EQ(Reloaded(), u"a");
}

TEST_F(HistoryFiles, BadDescriptionsAreSkippedWithALineInTheLog) {
    Folder.Make();
    Temp.Write("secret.txt", "secret");
    WriteFile("clipboard_history1.txt", "good");
    WriteFile("clipboard_history2.txt", "");
    const std::string bad[] = {
        "",
        "Protected=1\r\n",
        "File0=missing.txt\r\n",
        "File0=clipboard_history2.txt\r\n",
        "File0=..\\secret.txt\r\n",
        "File0=../secret.txt\r\n",
        "File0=" + (Temp.Path() / "secret.txt").string() + "\r\n",
        "File0=C:secret.txt\r\n",
        "File0=\\\\127.0.0.1\\share\\secret.txt\r\n",
        "File0=..\r\n",
        "File1=clipboard_history1.txt\r\n",
    };
    for (std::size_t i = 0; i < std::size(bad); ++i) {
        WriteInfoFile("bad" + std::to_string(i) + ".info", bad[i]);
    }
    WriteFile("empty.info", "");
    WriteInfoFile("good.INFO", "File0=clipboard_history1.txt\r\nFile1=..\\secret.txt\r\n");
    EXPECT_EQ(Reloaded(), u"good");
    EXPECT_EQ(Log.Lines.size(), std::size(bad) + 2);
    EXPECT_EQ(FileNames().size(), std::size(bad) + 4);
}

TEST_F(HistoryFiles, FormatComesFromTheNameAndTimeFromTheFileWithoutTheKey) {
    Folder.Make();
    const std::pair<std::string, ItemFormat> cases[] = {
        {"a.TXT", CHF_ANSI_TEXT}, {"unicode_a.txt", CHF_UNICODE_TEXT},
        {"a.Rtf", CHF_RTF},       {"a.knd", CHF_KELPNOTES},
        {"a.html", CHF_HTML},     {"a.dat", CHF_UNICODE_TEXT}};
    for (const auto& [name, format] : cases) {
        WriteFile(name, "ab");
        Files.Created[(Folder.Path() / name).string()] = *FileTicksOf(TimeAt(7));
        const auto item = Folder.LoadDataFile(Utf8ToUtf16(name));
        ASSERT_TRUE(item) << name;
        EXPECT_EQ(item->format, format) << name;
        EXPECT_EQ(item->time.Second, 7) << name;
    }
    WriteFile("Unicode_b.txt", "\xFF\xFE");
    EXPECT_FALSE(Folder.LoadDataFile(u"Unicode_b.txt"));
}

TEST_F(HistoryFiles, FileInTheFoldersPlaceIsNoFolder) {
    Temp.Write("ClipboardHistory", "x");
    EXPECT_FALSE(Folder.Make());
    EXPECT_EQ(Reloaded(), u"");
    EXPECT_FALSE(Log.Lines.empty());
}

}  // namespace
}  // namespace vbr
