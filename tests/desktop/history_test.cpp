// SPDX-License-Identifier: MIT
#include "desktop/driver/history.h"

#include "platform/win32/windows.h"

#include <algorithm>
#include <fstream>
#include <psapi.h>
#include <random>
#include <set>
#include <thread>
#include <wtsapi32.h>

#include "desktop/driver/clipboard.h"
#include "desktop/driver/hanging_target.h"
#include "desktop/program_test.h"
#include "platform/win32/handle.h"
#include "resources/resource_ids.h"
#include "shell/tray_messages.h"

namespace vbr::desktop {
namespace {

using Texts = std::vector<std::u16string>;

UINT Format(const wchar_t* name) {
    return RegisterClipboardFormatW(name);
}

class History : public ProgramTest {
  protected:
    // A text is on the clipboard at the start, which becomes the first item.
    void Start(const std::string& settings = "") {
        copier_.CopyText(u"start");
        StartWithPhrase("phrase", "ShowHistoryPaneOnStart=0\n" + settings);
        ASSERT_TRUE(WaitForNewest({u"start"}));
    }
    Texts Newest(std::size_t count) { return NewestTexts(program_.Folder(), count); }
    bool WaitForNewest(const Texts& texts) {
        return copier_.WaitUntil([&] { return Newest(texts.size()) == texts; });
    }
    bool WaitForLog(std::u16string_view line) {
        return copier_.WaitUntil([&] { return CountInLog(line) > 0; });
    }

    Copier copier_;
};

TEST_F(History, EveryKindOfCopyIsKeptAsItsKind) {
    using namespace std::string_literals;
    Start();
    copier_.Copy({{CF_UNICODETEXT, "p\0\0\0"s}, {Format(L"Rich Text Format"), "{\\rtf1 p}\0"s}});
    ASSERT_TRUE(WaitForNewest({u"{\\rtf1 p}"}));
    copier_.Copy({{CF_UNICODETEXT, "w\0\0\0"s},
                  {Format(L"HTML Format"), "Version:0.9\r\nSourceURL:http://h/\r\n<b>w\0"s}});
    ASSERT_TRUE(WaitForNewest({u"w"}));
    const StoredItem web = ReadStoredHistory(program_.Folder())[0];
    EXPECT_EQ(web.Info.Url, u"http://h/");
    EXPECT_EQ(web.Info.Files.size(), 2U);
    EXPECT_EQ(web.Info.WndName, u"Copying program");
    EXPECT_TRUE(EndsWithNoCase(web.Info.ExeName, u"vellumbridge_desktop_tests.exe"));
    // Neither a private format, nor a bitmap while that is off, nor a secret makes an item.
    copier_.Copy({{Format(L"Some private format"), "x"s}});
    EXPECT_TRUE(WaitForLog(u"it gives nothing that is kept"));
    copier_.CopyBitmap(false);
    EXPECT_TRUE(WaitForLog(u"its format is off"));
    // What a spreadsheet copies.
    copier_.CopyBitmap(true);
    EXPECT_TRUE(WaitForNewest({u"beside a bitmap"}));
    copier_.Copy({{CF_UNICODETEXT, "s\0\0\0"s},
                  {Format(L"ExcludeClipboardContentFromMonitorProcessing"), "1"s}});
    EXPECT_TRUE(WaitForLog(u"its owner asks to leave it alone"));
    ASSERT_TRUE(copier_.CopyUntilTaken(u"end"));
    EXPECT_TRUE(WaitForNewest({u"end", u"beside a bitmap", u"w", u"{\\rtf1 p}", u"start"}));
    EXPECT_EQ(ReadStoredHistory(program_.Folder()).size(), 5U);
    EXPECT_EQ(program_.End(), 0U);
}

TEST_F(History, AChosenItemArrivesAndStaysOnTheClipboardWithoutANewItem) {
    Start("TextPasteMethod_v150=0");
    copier_.CopyText(u"second");
    ASSERT_TRUE(WaitForNewest({u"second", u"start"}));
    const Notepad notepad;
    OpenMenu(notepad);
    ClickMenuLine(FindMenuLine(u"start"), MouseButton::Left);
    EXPECT_EQ(notepad.WaitForText(u"start"), u"start");
    EXPECT_TRUE(copier_.WaitUntil(
        [] { return ReadClipboard()[L"13"] == std::string("s\0t\0a\0r\0t\0\0\0", 12); }));
    copier_.CopyText(u"right after");
    EXPECT_TRUE(WaitForNewest({u"right after", u"second", u"start"}));
    EXPECT_EQ(Newest(99).size(), 3U);
}

// Another program that follows the clipboard by the chain of viewers.
class OtherViewer {
  public:
    OtherViewer()
        : window_(CreateWindowW(L"Static", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr,
                                nullptr)) {
        SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Hear));
        next_ = SetClipboardViewer(window_);
    }
    ~OtherViewer() {
        ChangeClipboardChain(window_, next_);
        DestroyWindow(window_);
    }

    int Heard = 0;

  private:
    static LRESULT CALLBACK Hear(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_DRAWCLIPBOARD) {
            ++reinterpret_cast<OtherViewer*>(GetWindowLongPtrW(window, GWLP_USERDATA))->Heard;
        }
        return DefWindowProcW(window, message, wParam, lParam);
    }

    HWND window_;
    HWND next_;
};

TEST_F(History, TheChainOfViewersServesTooWithAnotherViewerBehindItAndWithout) {
    std::optional<OtherViewer> behind(std::in_place);
    Start("ClipboardSpyMethod_v2_22=0");
    const int heard = behind->Heard;
    EXPECT_TRUE(copier_.CopyUntilTaken(u"with another"));
    EXPECT_TRUE(copier_.WaitUntil([&] { return behind->Heard > heard; }));
    behind.reset();
    EXPECT_TRUE(copier_.CopyUntilTaken(u"alone"));
    EXPECT_TRUE(WaitForNewest({u"alone", u"with another", u"start"}));
}

TEST_F(History, NothingOfAQueryIsKeptButEachCopyOfTheUser) {
    Start();
    const Notepad notepad;
    notepad.SetText(u"selected");
    notepad.Select(0, 8);
    copier_.CopyText(u"just before");
    OpenMenu(notepad);
    copier_.CopyText(u"under the menu");
    copier_.CopyText(u"and another");
    copier_.WaitUntil([this] { return Newest(1) == Texts{u"just before"}; });
    CloseMenu();
    EXPECT_TRUE(WaitForNewest({u"and another"}));
    copier_.CopyText(u"right after");
    EXPECT_TRUE(WaitForNewest({u"right after", u"and another"}));
    Texts kept = Newest(99);
    std::erase(kept, u"under the menu");  // may have been too short on the clipboard
    EXPECT_EQ(kept, (Texts{u"right after", u"and another", u"just before", u"start"}));
}

TEST_F(History, AClipboardThatAnotherProgramHoldsIsReadWhenItIsLetGo) {
    Start();
    copier_.CopyAndHold(u"held", 700);
    EXPECT_TRUE(WaitForNewest({u"held", u"start"}));
}

TEST_F(History, AnOwnerThatHangsKeepsNobodyWaitingAndIsReadWhenItAnswers) {
    Start();
    const Notepad notepad;
    HangingTarget owner;
    owner.CopyThenHang();
    ASSERT_TRUE(owner.WaitUntilHanging());
    OpenMenu(notepad);
    CloseMenu();
    EXPECT_EQ(Newest(99), Texts{u"start"});
    owner.GoOn();
    EXPECT_TRUE(WaitForNewest({u"late", u"start"}));
}

TEST_F(History, KilledWith200ItemsItHasAllOfThemInOrderAtTheNextStart) {
    Start("ClipboardHistoryMax=200\nClipboardFormats1=0");
    Texts expected = {u"start"};
    for (int i = 1; i < 200; ++i) {
        expected.insert(expected.begin(), Concat(u"text ", i));
        ASSERT_TRUE(copier_.CopyUntilTaken(expected.front())) << i;
    }
    ASSERT_TRUE(WaitForNewest(expected));
    program_.Resident().Terminate();
    EXPECT_EQ(Newest(600), expected);
    copier_.Copy({});
    ASSERT_TRUE(program_.StartResident());
    // The pane's title tells the number of items in memory: it has three digits now.
    ASSERT_TRUE(
        copier_.WaitUntil([] { return SendMessageW(TrayWindow(), kMsgGetPaneTitle, 0, 0) == 38; }));
    // One more takes the oldest away, and nothing else.
    ASSERT_TRUE(copier_.CopyUntilTaken(u"one more"));
    expected.insert(expected.begin(), u"one more");
    expected.pop_back();
    EXPECT_TRUE(copier_.WaitUntil([&] { return Newest(600) == expected; }));
}

TEST_F(History, AClipOf50MegabytesIsInMemoryTwiceAtMost) {
    Start();
    const UniqueHandle process(
        OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, program_.Resident().Id()));
    PROCESS_MEMORY_COUNTERS before{};
    PROCESS_MEMORY_COUNTERS after{};
    ASSERT_TRUE(GetProcessMemoryInfo(process.get(), &before, sizeof before));
    const std::u16string text(25 << 20, u'x');
    copier_.CopyText(text);
    ASSERT_TRUE(WaitForNewest({text}));
    // One of the two is the system's, which hands the clipboard's content to each reader.
    ASSERT_TRUE(GetProcessMemoryInfo(process.get(), &after, sizeof after));
    EXPECT_LT(after.PeakWorkingSetSize - before.PeakWorkingSetSize,
              (2 * text.size() + text.size() / 5) * sizeof(char16_t));
}

TEST_F(History, CopiesAtFullSpeedLeaveItResponsiveWithTheLastOne) {
    Start();
    for (int i = 0; i < 1000; ++i) {
        copier_.CopyText(Concat(u"fast ", i));
    }
    DWORD_PTR ignored = 0;
    EXPECT_TRUE(
        SendMessageTimeoutW(TrayWindow(), WM_NULL, 0, 0, SMTO_NORMAL, kPatienceMs, &ignored));
    EXPECT_TRUE(WaitForNewest({u"fast 999"}));
}

// Something stands where the history's folder should, for as long as this lives.
class BlockedFolder {
  public:
    explicit BlockedFolder(const Program& program) : path_(program.Folder() / L"ClipboardHistory") {
        std::ofstream(path_) << "a file in the way";
    }
    ~BlockedFolder() { Remove(); }
    void Remove() {
        if (std::filesystem::is_regular_file(path_)) {
            std::filesystem::remove(path_);
        }
    }

  private:
    std::filesystem::path path_;
};

TEST_F(History, WhatCouldNotBeSavedIsSavedAsSoonAsItCanBe) {
    BlockedFolder blocked(program_);
    copier_.Copy({});
    ProgramTest::Start();
    ASSERT_TRUE(copier_.CopyUntilTaken(u"kept"));
    ASSERT_TRUE(copier_.WaitUntil(
        [this] { return CountInLog(u"No folder for the clipboard history") > 2; }));
    blocked.Remove();
    EXPECT_TRUE(WaitForNewest({u"kept"}));
}

TEST_F(History, WhatCouldNotBeSavedIsSavedAtTheEndEvenIfThatTakesAMoment) {
    BlockedFolder blocked(program_);
    copier_.Copy({});
    ProgramTest::Start();
    ASSERT_TRUE(copier_.CopyUntilTaken(u"kept"));
    // The pauses between the tries are long by now.
    ASSERT_TRUE(copier_.WaitUntil([this] { return CountInLog(u"fails again and again: 1") == 1; }));
    std::thread later([&blocked] {
        // The end takes half a second to show its balloon.
        Sleep(900);
        blocked.Remove();
    });
    EXPECT_EQ(program_.End(), 0U);
    later.join();
    EXPECT_EQ(Newest(99), Texts{u"kept"});
}

// What a user copies, repeats and clears, and what of it must be found after the program was
// killed.
class HastyUser {
  public:
    HastyUser(Copier& copier, const std::filesystem::path& folder, std::uint32_t seed)
        : copier_(copier), folder_(folder), chance_(seed) {}

    static constexpr std::size_t kLimit = 6;

    void Act() {
        const auto chance = chance_() % 30;
        if (chance == 0) {
            Clear();
            return;
        }
        if (chance < 8 && !copied_.empty()) {
            Copy(copied_[chance_() % copied_.size()]);
        } else {
            Copy(Concat(u"text ", ++texts_));
        }
        if (chance < 20) {
            Look();
        }
    }
    std::uint32_t Chance() { return static_cast<std::uint32_t>(chance_()); }

    // After the kill; the texts that the folder holds stay those that were copied.
    void Check() {
        Texts found = NewestTexts(folder_, 99);
        for (const std::u16string& text : found) {
            EXPECT_EQ(std::ranges::count(copied_, text) + std::ranges::count(past_, text), 1)
                << Utf16ToUtf8(text);
        }
        for (const std::u16string& text : saved_) {
            EXPECT_TRUE(std::ranges::count(found, text) == 1) << Utf16ToUtf8(text);
        }
        std::reverse(found.begin(), found.end());
        copied_ = saved_ = found;
        past_.clear();
        // The next start takes what is still on the clipboard.
        NoteCopied(last_);
    }

  private:
    void Copy(std::u16string text) {
        copier_.CopyText(text);
        NoteCopied(text);
        Pump();
    }
    void NoteCopied(std::u16string text) {
        last_ = text;
        std::erase(copied_, text);
        std::erase(past_, text);
        seen_.erase(text);
        copied_.push_back(text);
        // What the limit takes away need not be there any more.
        while (copied_.size() > kLimit) {
            past_.push_back(copied_.front());
            std::erase(saved_, copied_.front());
            copied_.erase(copied_.begin());
        }
    }
    // The folder between two saves; in the middle of one an item may be on its way to another name,
    // or open to be deleted. Not valid while the program is at it.
    UniqueHandle HoldFolder() const {
        const std::filesystem::path lock = folder_ / L"ClipboardHistory" / L"vellumbridge_cb.lock";
        return UniqueHandle(CreateFileW(lock.c_str(), GENERIC_WRITE | DELETE, 0, nullptr,
                                        OPEN_ALWAYS, FILE_FLAG_DELETE_ON_CLOSE, nullptr));
    }
    void Look() {
        const UniqueHandle held = HoldFolder();
        if (!IsValid(held)) {
            return;
        }
        const Texts found = NewestTexts(folder_, 99);
        // What has never been seen may be on its way to the disk.
        std::erase_if(past_, [&](const auto& text) {
            return seen_.contains(text) && std::ranges::count(found, text) == 0;
        });
        seen_.insert(found.begin(), found.end());
        for (const std::u16string& text : found) {
            if (std::ranges::count(copied_, text) == 1 && std::ranges::count(saved_, text) == 0) {
                saved_.push_back(text);
            }
        }
    }
    void Clear() {
        // Else the last copy could be taken after the clear.
        Copy(Concat(u"text ", ++texts_));
        copier_.WaitUntil([this] { return NewestTexts(folder_, 1) == Texts{copied_.back()}; });
        SendMessageW(TrayWindow(), WM_COMMAND, kCmdClearHistory, 0);
        copied_.clear();
        saved_.clear();
        past_.clear();
        copier_.WaitUntil([this] {
            const UniqueHandle held = HoldFolder();
            return IsValid(held) && NewestTexts(folder_, 1).empty();
        });
    }

    Copier& copier_;
    std::filesystem::path folder_;
    std::mt19937 chance_;
    int texts_ = 0;
    std::u16string last_;
    Texts copied_;                   // the newest last
    Texts saved_;                    // of these, seen on the disk
    std::set<std::u16string> seen_;  // since they were copied last
    Texts past_;                     // beyond the limit, and not yet seen to be gone
};

TEST_F(History, KilledAHundredTimesItKeepsWhatWasSavedAndBringsNothingBack) {
    HastyUser user(copier_, program_.Folder(), 1);
    Start("ClipboardHistoryMax=6");
    for (int round = 0; round < 100; ++round) {
        const DWORD start = GetTickCount();
        const DWORD span = 50 + user.Chance() % 300;
        while (GetTickCount() - start < span) {
            user.Act();
        }
        program_.Resident().Terminate();
        user.Check();
        ASSERT_FALSE(HasFailure()) << round;
        ASSERT_TRUE(program_.StartResident());
    }
    EXPECT_EQ(program_.End(), 0U);
    // What was half written and half deleted is gone.
    const auto files = std::distance(
        std::filesystem::directory_iterator(program_.Folder() / L"ClipboardHistory"), {});
    EXPECT_EQ(static_cast<std::size_t>(files), 2 * ReadStoredHistory(program_.Folder()).size());
}

TEST_F(History, NothingIsKeptWhileTheSessionIsLocked) {
    Start();
    SendMessageW(TrayWindow(), WM_WTSSESSION_CHANGE, WTS_SESSION_LOCK, 0);
    EXPECT_TRUE(WaitForLog(u"Clipboard Spy is uninstalled=1"));
    copier_.CopyText(u"while locked");
    Sleep(300);
    EXPECT_EQ(Newest(99), Texts{u"start"});
    copier_.CopyText(u"start");
    SendMessageW(TrayWindow(), WM_WTSSESSION_CHANGE, WTS_SESSION_UNLOCK, 0);
    EXPECT_TRUE(WaitForLog(u"Clipboard Spy is installed=1"));
    EXPECT_TRUE(copier_.CopyUntilTaken(u"after"));
    EXPECT_TRUE(WaitForNewest({u"after", u"start"}));
}

}  // namespace
}  // namespace vbr::desktop
