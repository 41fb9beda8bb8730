// SPDX-License-Identifier: MIT
// Plays the program's main job in front of a camera: one step a call, so that pictures can be
// taken between them.
#include "platform/win32/windows.h"

#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <utility>
#include <vector>

#include "base/text.h"
#include "desktop/driver/keyboard.h"
#include "desktop/driver/menus.h"
#include "desktop/driver/notepad.h"
#include "desktop/driver/process.h"
#include "desktop/driver/program.h"
#include "desktop/driver/waiting.h"

namespace {

using namespace vbr::desktop;

constexpr int kDatePhrase = 0;  // the position of the first starter phrase in the menu

const std::u16string kSentence = u"This line was here. Today is ";

int Fail(const char* reason) {
    std::fprintf(stderr, "demo: %s\n", reason);
    return 1;
}

int OpenMenu() {
    const Notepad notepad = Notepad::Running();
    if (!notepad.IsOpen() || !WaitUntilReady()) {
        return Fail("Notepad or the program did not start");
    }
    notepad.SetText(kSentence);
    const int end = static_cast<int>(kSentence.size());
    notepad.Select(end, end);
    if (!WaitUntil([&] { return notepad.BringToFront(); })) {
        return Fail("Notepad did not take the keyboard");
    }
    // The menu opens at the mouse.
    SetCursorPos(330, 220);
    PressHotkey();
    if (!WaitForMenu()) {
        return Fail("the hot key brought no menu");
    }
    PressKeys({VK_DOWN});
    // Only a menu that is drawn answers.
    if (!WaitUntil([] {
            const std::vector<MenuLine> lines = ReadMenu(TopMenuWindow());
            return !lines.empty() && lines[0].IsSelected();
        })) {
        return Fail("the menu took no key");
    }
    return 0;
}

int Choose() {
    const Notepad notepad = Notepad::Running();
    static_assert(kDatePhrase == 0, "open-menu has selected the first item");
    PressKeys({VK_RETURN});
    if (!WaitUntil([&] { return notepad.Text().size() > kSentence.size(); })) {
        return Fail("no text arrived in Notepad");
    }
    // All of it is there when it stops growing.
    std::u16string text;
    WaitUntil([&] {
        const std::u16string before = std::exchange(text, notepad.Text());
        Sleep(300);
        return before == text;
    });
    std::printf("%s\n", vbr::Utf16ToUtf8(text).c_str());
    return 0;
}

int Close() {
    DWORD process = 0;
    GetWindowThreadProcessId(TrayWindow(), &process);
    const vbr::UniqueHandle program(OpenProcess(SYNCHRONIZE, FALSE, process));
    const wchar_t* folder = _wgetenv(L"VELLUMBRIDGE_FOLDER");
    const std::wstring path = folder ? folder : L".";
    Process(L"\"" + path + L"\\Vellumbridge.exe\" /exit").WaitForExit(kPatienceMs);
    Notepad::Running().CloseWithoutSaving();
    return WaitForSingleObject(program.get(), kPatienceMs) == WAIT_OBJECT_0
               ? 0
               : Fail("the program did not end");
}

}  // namespace

int main(int argc, char** argv) {
    const std::string_view step = argc == 2 ? argv[1] : "";
    if (step == "open-menu") {
        return OpenMenu();
    }
    if (step == "choose") {
        return Choose();
    }
    if (step == "close") {
        return Close();
    }
    return Fail("usage: vellumbridge_demo open-menu | choose | close");
}
