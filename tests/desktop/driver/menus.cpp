// SPDX-License-Identifier: MIT
#include "desktop/driver/menus.h"

#include <algorithm>
#include <sstream>

#include "desktop/driver/keyboard.h"
#include "desktop/driver/program.h"
#include "desktop/driver/waiting.h"
#include "desktop/reader/menu_reader.h"
#include "platform/win32/handle.h"
#include "platform/win32/wide.h"

namespace vbr::desktop {
namespace {

// The library beside this program, put into the thread of the program's menus as long as this
// lives.
class MenuReader {
  public:
    explicit MenuReader(HWND menuWindow)
        : library_(LoadLibraryW(L"vellumbridge_menu_reader.dll")),
          mapping_(CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                      kReaderMappingBytes, kReaderMapping)) {
        const auto proc = reinterpret_cast<HOOKPROC>(
            reinterpret_cast<void*>(GetProcAddress(library_, kReaderProc)));
        const DWORD thread = GetWindowThreadProcessId(menuWindow, nullptr);
        hook_ = SetWindowsHookExW(WH_CALLWNDPROC, proc, library_, thread);
    }
    ~MenuReader() {
        UnhookWindowsHookEx(hook_);
        FreeLibrary(library_);
    }
    MenuReader(const MenuReader&) = delete;
    MenuReader& operator=(const MenuReader&) = delete;

    std::wstring Read(HWND menuWindow) const {
        DWORD_PTR ignored = 0;
        SendMessageTimeoutW(menuWindow, RegisterWindowMessageW(kReadMenuMessage), 0, 0, SMTO_NORMAL,
                            kPatienceMs, &ignored);
        const auto* view =
            static_cast<const wchar_t*>(MapViewOfFile(mapping_.get(), FILE_MAP_READ, 0, 0, 0));
        std::wstring text = view ? view : L"";
        UnmapViewOfFile(view);
        return text;
    }

  private:
    HMODULE library_;
    UniqueHandle mapping_;
    HHOOK hook_ = nullptr;
};

}  // namespace

HWND TopMenuWindow() {
    const HWND menu = FindWindowW(L"#32768", nullptr);
    return menu && IsWindowVisible(menu) ? menu : nullptr;
}

bool IsMenuOpen() {
    return TopMenuWindow() != nullptr;
}

bool WaitForMenu() {
    return WaitUntil(IsMenuOpen);
}

bool WaitForNoMenu() {
    return WaitUntil([] { return !IsMenuOpen(); });
}

void ChooseMenuItem(int position) {
    for (int i = 0; i <= position; ++i) {
        PressKeys({VK_DOWN});
    }
    PressKeys({VK_RETURN});
}

std::vector<MenuLine> ReadMenu(HWND menuWindow) {
    const std::wstring text = MenuReader(menuWindow).Read(menuWindow);
    std::vector<MenuLine> lines;
    std::wistringstream in(text);
    for (std::wstring row; std::getline(in, row);) {
        std::wistringstream columns(row);
        MenuLine line;
        int isAccessible = 0;
        columns >> line.Depth >> line.Id >> line.State >> isAccessible >> line.Rect.left >>
            line.Rect.top >> line.Rect.right >> line.Rect.bottom;
        line.IsAccessible = isAccessible != 0;
        columns.get();
        std::wstring label;
        std::getline(columns, label);
        line.Label = FromWide(label.c_str());
        lines.push_back(line);
    }
    return lines;
}

MenuLine FindMenuLine(std::u16string_view label) {
    const std::vector<MenuLine> lines = ReadMenu(TopMenuWindow());
    const auto found = std::find_if(lines.begin(), lines.end(), [label](const MenuLine& line) {
        return line.Label == label && line.Depth == 0;
    });
    return found == lines.end() ? MenuLine() : *found;
}

void ClickMenuLine(const MenuLine& line, MouseButton button) {
    SetCursorPos((line.Rect.left + line.Rect.right) / 2, (line.Rect.top + line.Rect.bottom) / 2);
    INPUT inputs[2]{};
    inputs[0].type = inputs[1].type = INPUT_MOUSE;
    inputs[0].mi.dwFlags =
        button == MouseButton::Left ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_RIGHTDOWN;
    inputs[1].mi.dwFlags = button == MouseButton::Left ? MOUSEEVENTF_LEFTUP : MOUSEEVENTF_RIGHTUP;
    SendInput(2, inputs, sizeof(INPUT));
}

}  // namespace vbr::desktop
