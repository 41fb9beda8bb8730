// SPDX-License-Identifier: MIT
#include "platform/win32/windows.h"

#include <functional>
#include <shellapi.h>

#include "desktop/driver/taskbar.h"
#include "desktop/program_test.h"
#include "platform/object_names.h"
#include "platform/win32/wide.h"
#include "resources/resource_ids.h"

namespace vbr::desktop {
namespace {

UniqueHandle OpenSignal(std::u16string_view name) {
    return UniqueHandle(OpenEventW(EVENT_ALL_ACCESS, FALSE, Wide(name.data())));
}

// Reads an event without using up its signal.
struct EventState {
    bool IsManual = false;
    bool IsSignalled = false;
};

EventState StateOf(HANDLE event) {
    struct Info {
        int Type = -1;  // 0 for manual reset
        LONG State = -1;
    } info;
    using Query = LONG(WINAPI*)(HANDLE, int, void*, ULONG, ULONG*);
    const auto query = reinterpret_cast<Query>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQueryEvent")));
    EXPECT_EQ(query(event, 0, &info, sizeof info, nullptr), 0);
    return {info.Type == 0, info.State != 0};
}

// An event by which other programs reach the running one.
struct Signal {
    std::u16string_view Name;
    bool IsManual;
    // Makes ready what the signal is to change, and gives the question whether it has.
    std::function<std::function<bool()>()> Prepare;
};

class TrayEvents : public ProgramTest {
  protected:
    // Each signal twice: it is taken, shows its effect and is watched again.
    void ExpectServed(const Signal& signal) {
        const std::string name = Utf16ToUtf8(signal.Name);
        UniqueHandle event;
        ASSERT_TRUE(WaitUntil([&] { return (event = OpenSignal(signal.Name)) != nullptr; }))
            << name;
        EXPECT_EQ(StateOf(event.get()).IsManual, signal.IsManual) << name;
        EXPECT_FALSE(StateOf(event.get()).IsSignalled) << name;
        for (int i = 0; i < 2; ++i) {
            // What came before is over.
            ASSERT_TRUE(Answers()) << name;
            const std::function<bool()> isSeen = signal.Prepare();
            ASSERT_TRUE(SetEvent(event.get()));
            EXPECT_TRUE(WaitUntil(isSeen)) << name;
            EXPECT_TRUE(WaitUntil([&] { return !StateOf(event.get()).IsSignalled; })) << name;
        }
    }
    bool Answers() const {
        DWORD_PTR ignored = 0;
        return SendMessageTimeoutW(TrayWindow(), WM_NULL, 0, 0, SMTO_NORMAL, kPatienceMs,
                                   &ignored) != 0;
    }
    // Whether the icon is told something from now on for which the condition holds.
    std::function<bool()> IconIsTold(std::function<bool(const IconNotice&)> holds) {
        return [this, holds, from = taskbar_.Notices().size()] {
            return taskbar_.Count(holds, from) > 0;
        };
    }

    const Taskbar taskbar_;
};

TEST_F(TrayEvents, ASecondStartTurnsTheServiceOnAndIsTold) {
    ASSERT_TRUE(program_.StartResident(L"/noinstall"));
    EXPECT_FALSE(OpenSignal(kEventDataNeeded));
    ExpectServed({kEventAlreadyWork, true, [this] {
                      return IconIsTold([](const IconNotice& notice) {
                          return EndsWithNoCase(notice.BalloonTitle, u", Already works");
                      });
                  }});
    EXPECT_TRUE(OpenSignal(kEventDataNeeded));
}

TEST_F(TrayEvents, EachSignalIsServedAndWatchedAgain) {
    StartWithPhrase("text");
    int phrases = 1;
    const Signal signals[] = {
        {kEventEditorEnded, false,
         [&] {
             program_.AddPhrase("Edited " + std::to_string(++phrases), 1, "text");
             const std::u16string count = Concat(u"[", phrases, u"/", phrases, u"]");
             return IconIsTold([count](const IconNotice& notice) {
                 return notice.Tip.find(count) != notice.Tip.npos;
             });
         }},
        {kEventLangUiChanged, false,
         [this] {
             return IconIsTold([](const IconNotice& notice) { return !notice.Tip.empty(); });
         }},
        {kEventShowMenu, false, [] {
             return [] {
                 if (!IsMenuOpen()) {
                     return false;
                 }
                 CloseMenu();
                 return true;
             };
         }}};
    for (const Signal& signal : signals) {
        ExpectServed(signal);
    }
    EXPECT_EQ(program_.End(), 0U);
}

// Whether the parts behind them are there or not, nobody's signal is left lying or stops the
// program.
TEST_F(TrayEvents, SignalsForOtherPartsAreTakenAndTheProgramAnswers) {
    StartWithPhrase("text", "ShowHistoryPaneOnStart=0");
    const std::pair<std::u16string_view, bool> signals[] = {{kEventFloatPaneBlink, false},
                                                            {kEventCheckForUpdates, false},
                                                            {kEventCommandCheckForUpdates, true},
                                                            {kEventEdit, true}};
    for (const auto& [name, isManual] : signals) {
        ExpectServed({name, isManual, [this] { return [this] { return Answers(); }; }});
    }
    EXPECT_TRUE(program_.Resident().IsRunning());
}

TEST_F(TrayEvents, TheExitSignalEndsTheProgramAndItsEvents) {
    StartWithPhrase("text");
    const UniqueHandle exit = OpenSignal(kEventExit);
    ASSERT_TRUE(exit);
    EXPECT_TRUE(StateOf(exit.get()).IsManual);
    ASSERT_TRUE(SetEvent(exit.get()));
    EXPECT_EQ(program_.Resident().WaitForExit(kPatienceMs), 0U);
    EXPECT_FALSE(StateOf(exit.get()).IsSignalled);
}

TEST_F(TrayEvents, TheCommandForThePhraseMenuOpensItOverTheWindowInFront) {
    StartWithPhrase("chosen");
    const Notepad notepad;
    ASSERT_TRUE(WaitUntil([&] { return notepad.BringToFront(); }));
    SendMessageW(TrayWindow(), WM_COMMAND, kCmdShowPhraseMenu, 0);
    ASSERT_TRUE(WaitForMenu());
    ChooseMenuItem(0);
    EXPECT_EQ(notepad.WaitForText(u"chosen"), u"chosen");
}

TEST_F(TrayEvents, TheSessionsLockAndItsEndChangeTheIcon) {
    StartWithPhrase("text");
    for (const WPARAM reason : {WTS_SESSION_LOCK, WTS_SESSION_UNLOCK}) {
        const auto isChanged =
            IconIsTold([](const IconNotice& notice) { return !notice.Tip.empty(); });
        SendMessageW(TrayWindow(), WM_WTSSESSION_CHANGE, reason, 0);
        EXPECT_TRUE(isChanged()) << reason;
    }
}

}  // namespace
}  // namespace vbr::desktop
