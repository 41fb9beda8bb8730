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

    CCHQueue loaded;
    EXPECT_TRUE(HistoryFolder(Folder.Path(), Store, Files, Log).Load(loaded));
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
    Save();
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
    Save();
    EXPECT_EQ(Reloaded(), u"c! b a");
    Queue.Trim(2);
    Save();
    EXPECT_EQ(Reloaded(), u"c! b");
    WriteFile("any file.dat", "x");
    Queue.Clear();
    Save();
    EXPECT_EQ(FileNames(), (Names{"vellumbridge_cb3.info", "Unicode_clipboard_history3.txt"}));
    EXPECT_EQ(Reloaded(), u"c!");
    Queue.Undo();
    Save();
    EXPECT_EQ(Reloaded(), u"c! b");
}

TEST_F(HistoryFiles, ManyCopiesOfOneTextLeaveOneItemsFiles) {
    for (int i = 0; i < 200; ++i) {
        AddTexts(u"a");
        Save();
    }
    EXPECT_EQ(FileNames().size(), 2U);
    Queue.Delete({0}, false);
    Save();
    EXPECT_EQ(FileNames(), Names{});
}

TEST_F(HistoryFiles, AnItemBeyondTheLimitKeepsItsFilesUntilItIsCopiedAgain) {
    AddTexts(u"abc");
    Save();
    HistoryFolder folder(Folder.Path(), Store, Files, Log);
    CCHQueue loaded;
    CCHQueue queue;
    EXPECT_TRUE(folder.Load(loaded));
    queue.Merge(loaded, 2);
    const auto save = [&] {
        EXPECT_TRUE(folder.Save(queue.TakeFileChanges(), queue.CopyUnsaved(),
                                [&queue](const CCHItem& saved) { queue.NoteSaved(saved); }));
    };
    save();
    EXPECT_EQ(TextsOf(queue), u"c b");
    EXPECT_EQ(Reloaded(), u"c b a");
    queue.Add(TextItem(u"a", 9), kNoItemLimit);
    queue.Delete({0}, false);
    save();
    EXPECT_EQ(Reloaded(), u"c b");
}

TEST_F(HistoryFiles, TheOlderOfEqualItemsGoesWhenTheNewerIsStored) {
    AddTexts(u"a");
    Save();
    Files.Broken = SystemError{112, u"the disk is full"};
    AddTexts(u"a");
    EXPECT_FALSE(Save());
    AddTexts(u"a");
    EXPECT_FALSE(Save());
    Files.Broken.reset();
    EXPECT_EQ(Reloaded(), u"a");
    Queue.Delete({0}, false);
    EXPECT_TRUE(Save());
    EXPECT_EQ(FileNames(), Names{});
}

TEST_F(HistoryFiles, EqualItemsThatWereLeftOnTheDiskLoadAsTheNewestAlone) {
    Add(TextItem(u"a", 5));
    Save();
    Temp.Write("ClipboardHistory/vellumbridge_cb0.info", ReadFile("vellumbridge_cb1.info"));
    CCHQueue other;
    other.Add(TextItem(u"a", 7), kNoItemLimit);
    HistoryFolder(Folder.Path(), Store, Files, Log)
        .Save({}, other.CopyUnsaved(), [](const CCHItem&) {});
    EXPECT_EQ(FileNames().size(), 5U);
    // One description tells of the file of another: it stays and harms nothing.
    EXPECT_EQ(Reloaded(), u"a");
    EXPECT_EQ(FileNames().size(), 3U);
    EXPECT_EQ(Reloaded(), u"a");
}

TEST_F(HistoryFiles, EditedItemKeepsItsDescriptionAndGetsNewData) {
    Add(TextItem(u"a"));
    Save();
    Queue.ChangeItem(0, [](CCHItem& item) {
        item.SetData(TextBytes(u"A"));
        return true;
    });
    Files.MoveError = SystemError{5, u"refused"};
    EXPECT_FALSE(Save());
    EXPECT_EQ(Reloaded(), u"a");
    Files.MoveError.reset();
    EXPECT_TRUE(Save());
    EXPECT_EQ(FileNames(), (Names{"vellumbridge_cb1.info", "Unicode_clipboard_history2.txt"}));
    EXPECT_EQ(Reloaded(), u"A");
}

TEST_F(HistoryFiles, WhatHappensWhileAnItemIsWrittenHappensToItsFilesToo) {
    AddTexts(u"abc");
    Folder.Save(Queue.TakeFileChanges(), Queue.CopyUnsaved(), [this](const CCHItem& saved) {
        if (saved.WideText() == u"a") {
            Queue.SetProtected(2, true);
            Queue.Delete({0}, false);
            Queue.ChangeItem(0, [](CCHItem& item) {
                item.SetData(TextBytes(u"B"));
                return true;
            });
        }
        Queue.NoteSaved(saved);
    });
    EXPECT_EQ(Reloaded(), u"c b a");
    Save();
    EXPECT_EQ(Reloaded(), u"B a!");
    EXPECT_EQ(FileNames().size(), 4U);
}

TEST_F(HistoryFiles, FailedSaveLeavesNothingBehindAndIsTriedAgain) {
    Add(TextItem(u"a"));
    Files.Broken = SystemError{112, u"the disk is full"};
    EXPECT_FALSE(Save());
    EXPECT_NE(Log.Lines.back().find(u"the disk is full"), std::u16string::npos);
    Files.Broken.reset();
    Files.MoveError = SystemError{112, u"the disk is full"};
    EXPECT_FALSE(Save());
    EXPECT_EQ(FileNames(), Names{});
    Files.MoveError.reset();
    EXPECT_TRUE(Save());
    EXPECT_EQ(Reloaded(), u"a");
}

TEST_F(HistoryFiles, NothingIsWrittenWhileTheFolderCannotBeListedOrHeld) {
    AddTexts(u"a");
    Store.ListError = SystemError{5, u"denied"};
    EXPECT_FALSE(Save());
    CCHQueue loaded;
    EXPECT_FALSE(Folder.Load(loaded));
    Store.ListError.reset();
    Files.IsHeldByOthers = true;
    EXPECT_FALSE(Save());
    EXPECT_EQ(FileNames(), Names{});
    Files.IsHeldByOthers = false;
    EXPECT_TRUE(Save());
    Files.IsHeldByOthers = true;  // which keeps nobody from reading
    EXPECT_EQ(Reloaded(), u"a");
}

TEST_F(HistoryFiles, TwoProgramsOnOneFolderTakeNothingFromEachOther) {
    AddTexts(u"a");
    Save();
    HistoryFolder others(Folder.Path(), Store, Files, Log);
    CCHQueue theirs;
    const auto saveTheirs = [&] {
        return others.Save(theirs.TakeFileChanges(), theirs.CopyUnsaved(),
                           [&theirs](const CCHItem& saved) { theirs.NoteSaved(saved); });
    };
    EXPECT_TRUE(others.Load(theirs));
    // They delete the item of both and give its names to another one.
    theirs.Delete({0}, false);
    saveTheirs();
    theirs.Add(TextItem(u"t", 3), kNoItemLimit);
    theirs.SetProtected(0, true);
    saveTheirs();
    EXPECT_TRUE(FileNames().contains("vellumbridge_cb1.info"));
    Queue.SetProtected(0, true);
    Queue.ChangeItem(0, [](CCHItem& item) {
        item.SetData(TextBytes(u"A"));
        return true;
    });
    EXPECT_TRUE(Save());
    EXPECT_EQ(Reloaded(), u"t! A!");
    AddTexts(u"b");
    Queue.SetProtected(1, false);
    Queue.Delete({1}, false);
    EXPECT_TRUE(Save());
    EXPECT_EQ(Reloaded(), u"t! b");
    Queue.Clear();
    EXPECT_TRUE(Save());
    EXPECT_EQ(Reloaded(), u"t!");
}

TEST_F(HistoryFiles, WhatWouldNotBeReadAgainIsNotWritten) {
    const auto tooLarge = [] {
        auto item = std::make_unique<CCHItem>(CHF_RTF, 0, TimeAt(1));
        item->SetData(ItemBytes(kMaxStampedFile - 1, std::byte{'x'}));
        return item;
    };
    auto item = TextItem(u"a");
    item->alternatives.push_back(tooLarge());
    Add(std::move(item));
    Add(tooLarge());
    Add(PictureItem(1, 1));
    EXPECT_TRUE(Save());
    EXPECT_TRUE(Save());
    EXPECT_EQ(FileNames().size(), 2U);
    EXPECT_EQ(Log.Lines.size(), 2U);
}

TEST_F(HistoryFiles, WhatACrashLeftGoesUnlessADescriptionCannotBeRead) {
    AddTexts(u"a");
    Save();
    const Names stored = FileNames();
    const Names left = {"Unicode_clipboard_history7.txt", "clipboard_history2.rtf", "~vbr12-3.new"};
    const Names others = {"notes.txt", "clipboard_history02.rtf", "clipboard_history.txt"};
    for (const Names& names : {left, others}) {
        for (const std::string& name : names) {
            WriteFile(name, "x");
        }
    }
    WriteFile("vellumbridge_cb9.info", std::string((1 << 20) + 1, 'x'));
    EXPECT_EQ(Reloaded(), u"a");
    EXPECT_EQ(FileNames().size(), 9U);
    std::filesystem::remove(Folder.Path() / "vellumbridge_cb9.info");
    EXPECT_EQ(Reloaded(), u"a");
    Names expected = stored;
    expected.insert(others.begin(), others.end());
    EXPECT_EQ(FileNames(), expected);
}

TEST_F(HistoryFiles, BadDescriptionsAreSkippedWithALineInTheLog) {
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
        "File0=good.INFO\r\n",
    };
    for (std::size_t i = 0; i < std::size(bad); ++i) {
        WriteInfoFile("bad" + std::to_string(i) + ".info", bad[i]);
    }
    WriteFile("empty.info", "");
    WriteInfoFile("good.INFO", "File0=clipboard_history1.txt\r\nFile1=..\\secret.txt\r\n");
    EXPECT_EQ(Reloaded(), u"good");
    EXPECT_EQ(Log.Lines.size(), std::size(bad) + 2);
    EXPECT_EQ(FileNames().size(), std::size(bad) + 4);
    EXPECT_EQ(Temp.Read("secret.txt"), "secret");
}

TEST_F(HistoryFiles, FormatComesFromTheNameAndTimeFromTheFileWithoutTheKey) {
    const std::pair<std::string, ItemFormat> cases[] = {
        {"a.TXT", CHF_ANSI_TEXT}, {"unicode_a.txt", CHF_UNICODE_TEXT},
        {"a.Rtf", CHF_RTF},       {"a.knd", CHF_KELPNOTES},
        {"a.html", CHF_HTML},     {"a.dat", CHF_UNICODE_TEXT}};
    ItemReader reader(Folder.Path(), Files, Log);
    for (const auto& [name, format] : cases) {
        WriteFile(name, "ab");
        Files.Created[(Folder.Path() / name).string()] = *FileTicksOf(TimeAt(7));
        const auto item = reader.LoadDataFile(Utf8ToUtf16(name));
        ASSERT_TRUE(item) << name;
        EXPECT_EQ(item->format, format) << name;
        EXPECT_EQ(item->time.Second, 7) << name;
    }
    WriteFile("Unicode_b.txt", "\xFF\xFE");
    EXPECT_FALSE(reader.LoadDataFile(u"Unicode_b.txt"));
}

TEST_F(HistoryFiles, FileInTheFoldersPlaceIsNoFolder) {
    Temp.Write("ClipboardHistory", "x");
    AddTexts(u"a");
    EXPECT_FALSE(Save());
    EXPECT_EQ(Reloaded(), u"");
    EXPECT_FALSE(Log.Lines.empty());
}

}  // namespace
}  // namespace vbr
