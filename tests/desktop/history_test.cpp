// SPDX-License-Identifier: MIT
#include "desktop/driver/history.h"

#include "platform/win32/windows.h"

#include <algorithm>
#include <fstream>
#include <psapi.h>
#include <random>
#include <thread>
#include <wtsapi32.h>

#include "desktop/driver/clipboard.h"
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
    // Copies texts until one is taken, as it is some time after the program used the clipboard.
    std::u16string WaitUntilCaptures() {
        int number = 0;
        copier_.WaitUntil([&] {
            copier_.CopyText(Concat(u"marker ", ++number));
            Sleep(200);
            return !Newest(1).empty() && Newest(1)[0].starts_with(u"marker");
        });
        return Newest(1).empty() ? u"" : Newest(1)[0];
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
    copier_.CopyBitmap();
    EXPECT_TRUE(WaitForLog(u"its format is off"));
    copier_.Copy({{CF_UNICODETEXT, "s\0\0\0"s},
                  {Format(L"ExcludeClipboardContentFromMonitorProcessing"), "1"s}});
    EXPECT_TRUE(WaitForLog(u"its owner asks to leave it alone"));
    ASSERT_TRUE(copier_.CopyUntilTaken(u"end"));
    EXPECT_TRUE(WaitForNewest({u"end", u"w", u"{\\rtf1 p}", u"start"}));
    EXPECT_EQ(ReadStoredHistory(program_.Folder()).size(), 4U);
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
    // The next copies that are kept stand right above the earlier ones.
    ASSERT_NE(WaitUntilCaptures(), u"");
    Texts earlier = Newest(99);
    std::erase_if(earlier, [](const auto& text) { return text.starts_with(u"marker"); });
    EXPECT_EQ(earlier, (Texts{u"second", u"start"}));
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

TEST_F(History, NothingOfAQueryIsKept) {
    Start();
    const Notepad notepad;
    notepad.SetText(u"selected");
    notepad.Select(0, 8);
    OpenMenu(notepad);
    CloseMenu();
    ASSERT_NE(WaitUntilCaptures(), u"");
    // What was copied within three seconds is not kept either.
    for (const std::u16string& text : Newest(99)) {
        EXPECT_TRUE(text == u"start" || (text.starts_with(u"marker") && text != u"marker 1"));
    }
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
        if (chance == 0 && !copied_.empty()) {
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
    }

  private:
    void Copy(const std::u16string& text) {
        copier_.CopyText(text);
        std::erase(copied_, text);
        std::erase(past_, text);
        copied_.push_back(text);
        // What the limit takes away need not be there any more.
        while (copied_.size() > kLimit) {
            past_.push_back(copied_.front());
            std::erase(saved_, copied_.front());
            copied_.erase(copied_.begin());
        }
        Pump();
    }
    void Look() {
        const Texts found = NewestTexts(folder_, 99);
        std::erase_if(past_, [&](const auto& text) { return std::ranges::count(found, text) == 0; });
        for (const std::u16string& text : found) {
            if (std::ranges::count(copied_, text) == 1 && std::ranges::count(saved_, text) == 0) {
                saved_.push_back(text);
            }
        }
    }
    void Clear() {
        // Else it could be taken after the clear.
        if (!copier_.WaitUntil([this] { return NewestTexts(folder_, 1) == Texts{copied_.back()}; })) {
            for (const auto& i : ReadStoredHistory(folder_)) std::cout << "DBG " << Utf16ToUtf8(i.Text) << " " << i.Info.Time << " " << Utf16ToUtf8(i.Info.Files[0]) << "\n";
            std::cout << "DBG last " << Utf16ToUtf8(copied_.back()) << std::endl;
        }
        SendMessageW(TrayWindow(), WM_COMMAND, kCmdClearHistory, 0);
        copied_.clear();
        saved_.clear();
        past_.clear();
        if (!copier_.WaitUntil([this] { return NewestTexts(folder_, 1).empty(); })) {
            for (const auto& i : ReadStoredHistory(folder_)) std::cout << "DBG2 " << Utf16ToUtf8(i.Text) << " " << i.Info.Time << " " << Utf16ToUtf8(i.Info.Files[0]) << "\n";
            for (const auto& e : std::filesystem::directory_iterator(folder_ / L"ClipboardHistory")) std::cout << "DBG2 " << e.path().string() << "\n";
            std::cout << "DBG2 title " << SendMessageW(TrayWindow(), kMsgGetPaneTitle, 0, 0) << std::endl;
            }
    }

    Copier& copier_;
    std::filesystem::path folder_;
    std::mt19937 chance_;
    int texts_ = 0;
    Texts copied_;  // the newest last
    Texts saved_;   // of these, seen on the disk
    Texts past_;    // beyond the limit, and not yet seen to be gone
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
    EXPECT_EQ(static_cast<std::size_t>(files),
              2 * ReadStoredHistory(program_.Folder()).size());
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
