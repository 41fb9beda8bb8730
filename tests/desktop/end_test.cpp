// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <thread>

#include "desktop/driver/clipboard.h"
#include "desktop/driver/hanging_target.h"
#include "desktop/driver/history.h"
#include "desktop/program_test.h"
#include "platform/object_names.h"
#include "shell/instance_control.h"

namespace vbr::desktop {
namespace {

using Texts = std::vector<std::u16string>;

class End : public ProgramTest {
  public:
    // The history begins empty.
    End() { Copier().Copy({}); }
    void Start() {
        for (const char* name : {"Group/Inner", "Only"}) {
            std::filesystem::create_directories(program_.Phrases() / "Group");
            program_.AddPhrase(name, ++phrases_, "text");
        }
        program_.AddPhrase("Prompt", ++phrases_, "A%PROMPT_TEXT={}%B%PROMPT_TEXT={}%");
        program_.AddPhrase("Start", ++phrases_, "No.exe", "EXEC");
        ProgramTest::Start("InsertCHIntoMenu=0\nTextPasteMethod_v150=0");
    }
    void OpenMenuAt(std::u16string_view label) {
        OpenMenu(notepad_);
        PressKeys({label[0]});
        EXPECT_TRUE(WaitUntil([label] { return FindMenuLine(label).IsSelected(); }));
    }
    // Presses a key on the item, which brings up a window of that class.
    bool OpenFrom(std::u16string_view label, WORD key, const wchar_t* windowClass) {
        OpenMenuAt(label);
        const HWND menu = TopMenuWindow();
        PressKeys({key});
        return WaitUntil([&] {
            const HWND opened = FindWindowW(windowClass, nullptr);
            return opened && opened != menu && IsWindowVisible(opened);
        });
    }
    bool OpenSubmenu() { return OpenFrom(u"Group", VK_RIGHT, L"#32768"); }
    bool OpenRightMenu() { return OpenFrom(u"Only", VK_APPS, L"#32768"); }
    bool OpenPrompt() { return OpenFrom(u"AB", VK_RETURN, L"#32770"); }
    bool OpenBox() { return OpenFrom(u"Start", VK_RETURN, L"#32770"); }
    bool OpenTrayMenu() {
        program_.Start(L"/showmenu").WaitForExit(kPatienceMs);
        return WaitForMenu();
    }
    LRESULT Tell(UINT message, WPARAM wParam) {
        return SendMessageW(TrayWindow(), message, wParam, static_cast<LPARAM>(ENDSESSION_LOGOFF));
    }
    // Another program keeps the history's files from ours, which has kept one item, until that one
    // lets go by the event.
    UniqueHandle HoldHistory() {
        UniqueHandle guard = OpenSignal(kEventSaveLoadHistory);
        EXPECT_TRUE(Copier().CopyUntilTaken(u"first"));
        EXPECT_TRUE(WaitUntil([this] { return Stored() == Texts{u"first"}; }));
        WaitForSingleObject(guard.get(), kPatienceMs);
        ResetEvent(guard.get());
        return guard;
    }
    Texts Stored() { return NewestTexts(program_.Folder(), 99); }

    int phrases_ = 0;
    const Notepad notepad_;
};

TEST_F(End, ComesAtOnceWhateverIsOpenAndNothingIsChosenByIt) {
    bool (End::*const opens[])() = {&End::OpenSubmenu, &End::OpenRightMenu, &End::OpenTrayMenu,
                                    &End::OpenPrompt, &End::OpenBox};
    Start();
    for (const auto open : opens) {
        notepad_.SetText(u"");
        Copier().CopyText(u"kept");
        ASSERT_TRUE((this->*open)());
        const std::u16string text = notepad_.Text();
        if (open == &End::OpenSubmenu) {
            Tell(WM_ENDSESSION, TRUE);
            EXPECT_EQ(program_.Resident().WaitForExit(kPatienceMs), 0U);
        } else {
            EXPECT_EQ(program_.End(), 0U);
        }
        EXPECT_EQ(notepad_.Text(), text);
        if (open != &End::OpenPrompt && open != &End::OpenBox) {
            EXPECT_EQ(ReadClipboard()[L"13"].substr(0, 8), std::string("k\0e\0p\0t\0", 8));
        }
        EXPECT_TRUE(WaitUntil([this] { return GetForegroundWindow() == notepad_.Window(); }));
        ASSERT_TRUE(program_.StartResident());
    }
}

TEST_F(End, AtALogOffEverythingIsOnTheDiskBeforeTheSystemIsAnswered) {
    Start();
    const UniqueHandle guard = HoldHistory();
    ASSERT_TRUE(Copier().CopyUntilTaken(u"kept"));
    OpenMenuAt(u"Only");
    PressKeys({VK_RETURN});
    EXPECT_EQ(notepad_.WaitForText(u"text"), u"text");
    OpenMenu(notepad_);
    EXPECT_TRUE(Tell(WM_QUERYENDSESSION, 0));
    // Another program refuses.
    Tell(WM_ENDSESSION, FALSE);
    EXPECT_TRUE(IsMenuOpen());
    EXPECT_EQ(Stored(), Texts{u"first"});
    std::thread otherHolder([&] {
        WaitForLog(u"WM_ENDSESSION wParam=1");
        SetEvent(guard.get());
    });
    Tell(WM_ENDSESSION, TRUE);
    program_.Resident().Terminate();
    otherHolder.join();
    EXPECT_EQ(Stored(), (Texts{u"kept", u"first"}));
    EXPECT_NE(FileBytes(program_.Phrases() / "Only.vellumbridge").find("UsageCount=\"1\""),
              std::string::npos);
}

TEST_F(End, IsForcedOnAProgramThatHangsInACallAndLosesNothing) {
    Start();
    const UniqueHandle guard = HoldHistory();
    ASSERT_TRUE(Copier().CopyUntilTaken(u"kept"));
    HangingTarget target;
    target.CopyAndHang();
    ASSERT_TRUE(target.WaitUntilHanging());
    program_.Start(L"/exit").WaitForExit(kPatienceMs);
    // The system lets it go on after twenty seconds.
    EXPECT_EQ(program_.Resident().WaitForExit(15000), DWORD{kExitForced});
    EXPECT_EQ(Stored(), (Texts{u"kept", u"first"}));
}

}  // namespace
}  // namespace vbr::desktop
