// SPDX-License-Identifier: MIT
#include "desktop/driver/history.h"

#include "platform/win32/windows.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iostream>
#include <psapi.h>
#include <wtsapi32.h>

#include "base/text.h"
#include "desktop/driver/clipboard.h"
#include "desktop/driver/keyboard.h"
#include "desktop/driver/menus.h"
#include "desktop/driver/notepad.h"
#include "desktop/driver/program.h"
#include "desktop/driver/waiting.h"
#include "platform/win32/handle.h"
#include "shell/tray_messages.h"

namespace vbr::desktop {
namespace {

using Texts = std::vector<std::u16string>;

UINT Format(const wchar_t* name) {
    return RegisterClipboardFormatW(name);
}

// How many digits the number of items has that the running program holds in memory.
std::size_t ItemCountDigits() {
    const std::u16string_view around = u"Vellumbridge - Clipboard History []";
    const auto length =
        static_cast<std::size_t>(SendMessageW(TrayWindow(), kMsgGetPaneTitle, 0, 0));
    return length - around.size();
}

class History : public testing::Test {
  protected:
    // What there is to see of a failure stands here and in the log.
    void TearDown() override {
        if (!HasFailure()) {
            return;
        }
        for (const StoredItem& item : ReadStoredHistory(program_.Folder())) {
            std::cout << item.Info.Time << ' ' << Utf16ToUtf8(item.Info.Files[0]) << ' '
                      << Utf16ToUtf8(item.Text) << '\n';
        }
        std::cout << Utf16ToUtf8(program_.Log()) << '\n';
    }
    // A text is on the clipboard at the start, which becomes the first item.
    void Start(const std::string& settings = "") {
        program_.WriteSettings("ShowHistoryPaneOnStart=0\nWriteLog=1\n" + settings);
        program_.AddPhrase("Only phrase", 1, "phrase");
        copier_.CopyText(u"start");
        ASSERT_TRUE(program_.StartResident());
        ASSERT_TRUE(WaitForNewest({u"start"}));
    }
    Texts Newest(std::size_t count) { return NewestTexts(program_.Folder(), count); }
    bool WaitForNewest(const Texts& texts) {
        return copier_.WaitUntil([&] { return Newest(texts.size()) == texts; });
    }
    bool WaitForLog(std::u16string_view line) {
        return copier_.WaitUntil([&] { return program_.Log().find(line) != std::u16string::npos; });
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

    Program program_;
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

TEST_F(History, TheSettingsChooseWhatIsKept) {
    using namespace std::string_literals;
    program_.WriteSettings(
        "ShowHistoryPaneOnStart=0\nWriteLog=1\nClipboardFormats0=0\nClipboardFormats4=0");
    ASSERT_TRUE(program_.StartResident());
    copier_.CopyText(u"text alone");
    ASSERT_TRUE(WaitForLog(u"its format is off"));
    copier_.Copy({{CF_UNICODETEXT, "p\0\0\0"s},
                  {Format(L"HTML Format"), "Version:0.9\r\n<b>p\0"s},
                  {Format(L"Rich Text Format"), "{\\rtf1 p}\0"s}});
    ASSERT_TRUE(WaitForNewest({u"{\\rtf1 p}"}));
    const auto items = ReadStoredHistory(program_.Folder());
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].Info.Files.size(), 1U) << "HTML is off";
}

TEST_F(History, AChosenItemArrivesAndStaysOnTheClipboardWithoutANewItem) {
    Start("TextPasteMethod_v150=0");
    copier_.CopyText(u"second");
    ASSERT_TRUE(WaitForNewest({u"second", u"start"}));
    const Notepad notepad;
    ASSERT_TRUE(copier_.WaitUntil([&] { return notepad.BringToFront(); }));
    PressHotkey();
    ASSERT_TRUE(WaitForMenu());
    ClickMenuLine(FindMenuLine(u"start"), MouseButton::Left);
    EXPECT_EQ(notepad.WaitForText(u"start"), u"start");
    EXPECT_TRUE(copier_.WaitUntil([] {
        const std::string bytes = ReadClipboard()[std::to_wstring(CF_UNICODETEXT)];
        return bytes == std::string("s\0t\0a\0r\0t\0\0\0", 12);
    }));
    ASSERT_TRUE(WaitForLog(u"WM_DELAY_UNLOCK received"));
    EXPECT_EQ(Newest(99), (Texts{u"second", u"start"}));
}

// Another program that follows the clipboard by the chain of viewers, and passes on what it hears.
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
    OtherViewer(const OtherViewer&) = delete;
    OtherViewer& operator=(const OtherViewer&) = delete;

    int Heard = 0;

  private:
    static LRESULT CALLBACK Hear(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        auto& self = *reinterpret_cast<OtherViewer*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (message == WM_DRAWCLIPBOARD) {
            ++self.Heard;
            SendMessageW(self.next_, message, wParam, lParam);
            return 0;
        }
        if (message == WM_CHANGECBCHAIN && reinterpret_cast<HWND>(wParam) == self.next_) {
            self.next_ = reinterpret_cast<HWND>(lParam);
            return 0;
        }
        return DefWindowProcW(window, message, wParam, lParam);
    }

    HWND window_;
    HWND next_;
};

TEST_F(History, TheChainOfViewersServesTooWithAnotherViewerInIt) {
    Start("ClipboardSpyMethod_v2_22=0");
    EXPECT_TRUE(copier_.CopyUntilTaken(u"alone"));
    {
        const OtherViewer other;
        const int before = other.Heard;
        EXPECT_TRUE(copier_.CopyUntilTaken(u"with another"));
        EXPECT_GT(other.Heard, before);
    }
    EXPECT_TRUE(copier_.CopyUntilTaken(u"alone again"));
    EXPECT_TRUE(WaitForNewest({u"alone again", u"with another", u"alone", u"start"}));
}

TEST_F(History, ARepeatComesToTheFrontAndStaysProtected) {
    Start();
    copier_.CopyText(u"second");
    ASSERT_TRUE(WaitForNewest({u"second", u"start"}));
    program_.Resident().Terminate();
    for (const auto& entry :
         std::filesystem::directory_iterator(program_.Folder() / L"ClipboardHistory")) {
        if (entry.path().extension() == L".info") {
            std::ifstream file(entry.path(), std::ios::binary);
            std::string bytes(std::istreambuf_iterator<char>(file), {});
            file.close();
            std::ofstream(entry.path(), std::ios::binary) << WithProtection(bytes, true);
        }
    }
    ASSERT_TRUE(program_.StartResident());
    const auto isTakenAgain = [this] {
        const auto items = ReadStoredHistory(program_.Folder());
        return items.size() == 4 && items[0].Text == u"start" && items[0].Info.Protected;
    };
    ASSERT_TRUE(copier_.WaitUntil([this] { return Newest(2) == Texts{u"second", u"second"}; }));
    copier_.CopyText(u"start");
    EXPECT_TRUE(copier_.WaitUntil(isTakenAgain));
}

TEST_F(History, NothingOfAQueryIsKept) {
    Start();
    const Notepad notepad;
    ASSERT_TRUE(notepad.IsOpen());
    notepad.SetText(u"selected");
    notepad.Select(0, 8);
    ASSERT_TRUE(copier_.WaitUntil([&] { return notepad.BringToFront(); }));
    PressHotkey();
    ASSERT_TRUE(WaitForMenu());
    PressKeys({VK_ESCAPE});
    ASSERT_TRUE(WaitForNoMenu());
    ASSERT_NE(WaitUntilCaptures(), u"");
    // What was copied within three seconds is not kept either.
    for (const std::u16string& text : Newest(99)) {
        EXPECT_TRUE(text == u"start" || (text.starts_with(u"marker") && text != u"marker 1"));
    }
}

TEST_F(History, KilledWith500ItemsItHasAllOfThemInOrderAtTheNextStart) {
    Start("ClipboardHistoryMax=500\nClipboardFormats1=0");
    Texts expected = {u"start"};
    for (int i = 1; i < 500; ++i) {
        expected.insert(expected.begin(), Concat(u"text ", i));
        ASSERT_TRUE(copier_.CopyUntilTaken(expected.front())) << i;
    }
    ASSERT_TRUE(WaitForNewest(expected));
    program_.Resident().Terminate();
    EXPECT_EQ(Newest(600), expected);
    copier_.Copy({});
    ASSERT_TRUE(program_.StartResident());
    ASSERT_TRUE(copier_.WaitUntil([] { return ItemCountDigits() == 3; }));
    // One more takes the oldest away, and nothing else.
    ASSERT_TRUE(copier_.CopyUntilTaken(u"one more"));
    expected.insert(expected.begin(), u"one more");
    expected.pop_back();
    EXPECT_TRUE(WaitForNewest(expected));
    EXPECT_TRUE(copier_.WaitUntil([&] { return Newest(600) == expected; }));
}

TEST_F(History, Of2000CopiesEachIsTakenAndTheLast30StayInOrder) {
    Start();
    Texts expected;
    for (int i = 0; i < 2000; ++i) {
        expected.insert(expected.begin(), Concat(u"copy ", i));
        ASSERT_TRUE(copier_.CopyUntilTaken(expected.front())) << i;
    }
    expected.resize(30);
    EXPECT_TRUE(copier_.WaitUntil([&] { return Newest(30) == expected; }));
}

// The most memory that the process has used so far, in bytes.
SIZE_T PeakMemoryOf(DWORD process) {
    const UniqueHandle handle(
        OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, process));
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(handle.get(), &counters, sizeof counters);
    return counters.PeakWorkingSetSize;
}

TEST_F(History, AClipOf50MegabytesIsInMemoryTwiceAtMost) {
    Start();
    const SIZE_T before = PeakMemoryOf(program_.Resident().Id());
    ASSERT_GT(before, 0U);
    const std::u16string text(25 << 20, u'x');
    copier_.CopyText(text);
    ASSERT_TRUE(WaitForNewest({text}));
    // One of the two is the system's, which hands the clipboard's content to each reader.
    const SIZE_T grown = PeakMemoryOf(program_.Resident().Id()) - before;
    EXPECT_LT(grown, (2 * text.size() + text.size() / 5) * sizeof(char16_t));
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

TEST_F(History, AStartThatFailsIsTriedAgainAndHoldsNobodyUp) {
    program_.WriteSettings("WriteLog=1\nClipboardSpyMethod_v2_22=5");
    ASSERT_TRUE(program_.StartResident());
    EXPECT_TRUE(WaitForLog(u"No clipboard spy method has the number 5"));
    EXPECT_TRUE(WaitForLog(u"Try to delyaed install clipboard spy: success 0, try#2"));
    EXPECT_EQ(program_.End(), 0U);
}

TEST_F(History, AFileInThePlaceOfTheFolderLeavesTheRestWorking) {
    program_.WriteSettings("ShowHistoryPaneOnStart=0\nWriteLog=1");
    program_.AddPhrase("Only phrase", 1, "phrase");
    std::ofstream(program_.Folder() / L"ClipboardHistory") << "x";
    ASSERT_TRUE(program_.StartResident());
    ASSERT_TRUE(copier_.CopyUntilTaken(u"text"));
    EXPECT_EQ(program_.End(), 0U);
    const std::u16string log = program_.Log();
    EXPECT_NE(log.find(u"No folder for the clipboard history"), log.npos);
}

}  // namespace
}  // namespace vbr::desktop
